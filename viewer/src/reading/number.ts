// Numbers as the tool reads them: from the front of a text, with "." or "," as decimal mark.

// Undefined if the text does not begin with a number; "inf" and "nan" are numbers for the tool.
export function readNumber(source: string): number | undefined {
    const text = source.replaceAll(",", ".");
    const [, sign, rest] = /^[ \t-\r]*([+-]?)([^]*)$/.exec(text)!;
    const magnitude = readHexadecimal(rest!) ?? readDecimal(rest!) ?? readWord(rest!);
    return magnitude === undefined ? undefined : sign === "-" ? -magnitude : magnitude;
}

function readDecimal(text: string): number | undefined {
    const read = /^(?:\d+(?:\.\d*)?|\.\d+)(?:[eE][+-]?\d+)?/.exec(text);
    return read === null ? undefined : Number(read[0]);
}

function readHexadecimal(text: string): number | undefined {
    const read =
        /^0[xX](?=\.?[0-9a-fA-F])([0-9a-fA-F]*)(?:\.([0-9a-fA-F]*))?(?:[pP]([+-]?\d+))?/.exec(text);
    if (read === null) return undefined;
    const decimals = read[2] ?? "";
    const digits = [...(read[1]! + decimals)].reduce(
        (value, digit) => value * 16 + parseInt(digit, 16),
        0,
    );
    return digits * 2 ** (Number(read[3] ?? 0) - 4 * decimals.length);
}

function readWord(text: string): number | undefined {
    if (/^inf/i.test(text)) return Infinity;
    return /^nan/i.test(text) ? NaN : undefined;
}

// Whole numbers with what stands between, as in "2024-4-17Z"; undefined unless all are there.
export function readWholeNumbers(
    text: string,
    separator: string,
): [number, number, number] | undefined {
    const part = "[ \\t-\\r]*([+-]?\\d+)";
    const read = new RegExp(`^${part}${separator}${part}${separator}${part}`).exec(text);
    return read === null ? undefined : [Number(read[1]), Number(read[2]), Number(read[3])];
}
