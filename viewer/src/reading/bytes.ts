// Decides the encoding of a file as the tool's own reader does, and makes text of the bytes. The
// text ends at its first zero, as it does for the tool.
import { unreadable } from "./problem";

const utf8Mark = [0xef, 0xbb, 0xbf];
const utf16Mark = [0xff, 0xfe];
const otherUtf16Mark = [0xfe, 0xff];
const scannerRoom = 128;

export function decodeDocument(bytes: Uint8Array): string {
    if (bytes.length === 0) throw new unreadable("fileEmpty");
    const text = upToZero(decodeBytes(bytes));
    if (text.length === 0) throw new unreadable("noText");
    return text;
}

function decodeBytes(bytes: Uint8Array): string {
    if (beginsWith(bytes, utf8Mark)) return decodeNarrow("utf-8", bytes.subarray(utf8Mark.length));
    if (beginsWith(bytes, utf16Mark)) return unitsOf(bytes.subarray(utf16Mark.length));
    refuseUtf16OfOthers(bytes);
    const declared = declaredEncoding(bytes).toLowerCase();
    if (declared === "" || declared === "utf-8") return decodeNarrow("utf-8", bytes);
    // The tool then takes the single bytes for units, in which it finds no element.
    if (declared === "utf-16") throw new unreadable("declaredUtf16");
    return decodeNarrow("windows-1252", bytes);
}

function beginsWith(bytes: Uint8Array, start: number[]): boolean {
    return start.every((byte, index) => bytes[index] === byte);
}

function decodeNarrow(encoding: string, bytes: Uint8Array): string {
    return new TextDecoder(encoding, { ignoreBOM: true }).decode(bytes);
}

// Unit by unit, so that halves of pairs stay; half a unit at the end is filled up by a zero.
function unitsOf(bytes: Uint8Array): string {
    const parts: string[] = [];
    const units = new Uint16Array(Math.ceil(bytes.length / 2));
    for (let at = 0; at < bytes.length; ++at) units[at >> 1]! |= bytes[at]! << (8 * (at & 1));
    for (let at = 0; at < units.length; at += 8192) {
        parts.push(String.fromCharCode(...units.subarray(at, at + 8192)));
    }
    return parts.join("");
}

// Forms of UTF-16 that the tool does not read; a sentence of their own helps more than what their
// zeros would lead to.
function refuseUtf16OfOthers(bytes: Uint8Array): void {
    if (beginsWith(bytes, otherUtf16Mark)) throw new unreadable("utf16BigEndian");
    if (beginsWith(bytes, [0x3c, 0]) || beginsWith(bytes, [0, 0x3c]))
        throw new unreadable("utf16WithoutMark");
}

function upToZero(text: string): string {
    const zero = text.indexOf("\0");
    if (zero === -1) return text;
    if (!text.slice(0, zero).includes("<"))
        throw new unreadable("noTextFile", undefined, { position: zero + 1 });
    return text.slice(0, zero);
}

// The tool's scanner for the value of `encoding=` in front of a file, which knows no grammar. It
// collects words of the letters of "encoding=" that begin with an "e", over what the collecting
// buffer held before.
function declaredEncoding(bytes: Uint8Array): string {
    if (bytes.length < 3 || bytes[0] !== 0x3c || bytes[1] !== 0x3f) return "";
    const buffer: string[] = [];
    let written = 0;
    let inWord = false;
    let inValue = false;
    const store = (character: string): void => {
        if (written < scannerRoom) buffer[written++] = character;
    };
    for (let at = 2; at < bytes.length; ++at) {
        const character = String.fromCharCode(bytes[at]!);
        if (character === "?" && bytes[at + 1] === 0x3e) break;
        if (character === "e" || character === "E") {
            inWord = true;
            store(character);
        } else if (inWord && "=cdgino".includes(character.toLowerCase())) {
            store(character);
        } else if (inWord) {
            inWord = false;
            written = 0;
            if (character === '"' && collected(buffer).toLowerCase() === "encoding=") {
                inValue = true;
                buffer.length = 0;
            }
        } else if (inValue && character === '"') {
            // The tool's process ends here.
            if (written === scannerRoom) throw new unreadable("declarationTooLong");
            break;
        } else if (inValue) {
            store(character);
        }
    }
    return inValue ? collected(buffer) : "";
}

function collected(buffer: string[]): string {
    const text = buffer.join("");
    const zero = text.indexOf("\0");
    return zero === -1 ? text : text.slice(0, zero);
}
