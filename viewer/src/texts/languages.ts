// The languages of the tool, and which of them a browser asks for.
import { chinese } from "./chinese";
import { czech } from "./czech";
import { english } from "./english";
import { french } from "./french";
import { german } from "./german";
import { italian } from "./italian";
import { japanese } from "./japanese";
import { language } from "./language";
import { polish } from "./polish";
import { spanish } from "./spanish";

export const languages: readonly language[] = [
    new language("en", "English", english),
    new language("de", "Deutsch", german),
    new language("fr", "Français", french),
    new language("it", "Italiano", italian),
    new language("es", "Español", spanish),
    new language("pl", "Polski", polish),
    new language("cs", "Čeština", czech),
    new language("ja", "日本語", japanese),
    new language("zh-Hans", "中文", chinese),
];

// The first wanted one that is there, by its main part alone: "de-AT" is German. English if none is.
export function languageFor(wanted: readonly string[]): language {
    const mainPart = (code: string): string => code.toLowerCase().split("-")[0]!;
    for (const code of wanted) {
        const found = languages.find((each) => mainPart(each.code) === mainPart(code));
        if (found !== undefined) return found;
    }
    return languages[0]!;
}
