// The page: takes files, keeps what was read, and shows it in the language that is chosen.
import { csvOf } from "../export/csv";
import { download, safeFileName } from "../export/download";
import { pngOf } from "../export/raster";
import { type measurement } from "../numbers/measurement";
import { rowsOf } from "../numbers/rows";
import type { problem } from "../reading/problem";
import { isProblem, mostBytes, readFile, type readDocument } from "../reading/readFile";
import { svgOf } from "../scene/svg";
import type { textKey } from "../texts/english";
import { languageFor, languages } from "../texts/languages";
import { byId, make } from "./elements";
import { showFiles, takeDrops } from "./filePanel";
import { showFormulas } from "./formulaPanel";
import { showNumbers } from "./numberPanel";
import { fileSets, type setIndex } from "./sets";
import { viewPanel } from "./viewPanel";

interface failure {
    fileName: string;
    problem: problem;
}

class page {
    private readonly m_sets = new fileSets();
    private m_failures: failure[] = [];
    private m_speak = languageFor(navigator.languages);
    private readonly m_view = new viewPanel(this.m_speak);

    constructor() {
        const choice = byId<HTMLSelectElement>("language");
        choice.append(
            ...languages.map(({ code, name }) => make("option", { value: code, lang: code }, name)),
        );
        choice.value = this.m_speak.code;
        choice.addEventListener("change", () => this.speak(choice.value));
        takeDrops((files, set) => void this.add(files, set));
        this.speak(this.m_speak.code);
    }

    private speak(code: string): void {
        this.m_speak = languages.find((each) => each.code === code)!;
        document.documentElement.lang = this.m_speak.code;
        document.title = `${this.m_speak.text("title")} – tavenMorrel`;
        for (const each of document.querySelectorAll<HTMLElement>("[data-text]")) {
            each.textContent = this.m_speak.text(each.dataset.text as textKey);
        }
        this.status("");
        showFormulas(this.m_speak);
        this.m_view.speak(this.m_speak);
        this.show(false);
    }

    // One file after the other, so that their order decides where they go. Measuring files come
    // first: by them results find their place.
    private async add(files: File[], set?: setIndex): Promise<void> {
        const read: readDocument[] = [];
        for (const each of files) {
            this.status(this.m_speak.text("readingFile", { name: each.name }));
            const document = await this.read(each);
            if (isProblem(document))
                this.m_failures = [
                    ...this.m_failures,
                    { fileName: each.name, problem: document },
                ].slice(-8);
            else read.push(document);
        }
        read.sort((a, b) => Number(a.kind === "result") - Number(b.kind === "result"));
        for (const each of read) this.m_sets.add(each, set);
        this.show(read.length > 0);
        this.status(
            read.map(({ fileName }) => this.m_speak.text("fileRead", { name: fileName })).join(" "),
        );
    }

    private async read(file: File): Promise<readDocument | problem> {
        if (file.size > mostBytes)
            return { key: "fileTooLarge", values: { size: mostBytes / 1024 / 1024 } };
        try {
            return await readFile(new Uint8Array(await file.arrayBuffer()), file.name, breathe);
        } catch (thrown) {
            // A folder, or a file that has gone meanwhile.
            if (thrown instanceof DOMException) return { key: "cannotRead" };
            throw thrown;
        }
    }

    private show(otherFiles: boolean): void {
        showFiles(this.m_sets, this.m_speak, {
            add: (files, set) => void this.add(files, set),
            remove: (set, kind) => this.remove(() => this.m_sets.remove(set, kind), set),
            clear: () => this.remove(() => this.m_sets.clear(), 0),
        });
        const [first, second] = this.m_sets.measurements();
        this.showFailures();
        this.showNotices(first, second);
        byId("subtitle").textContent = this.captions(first, second).join(" · ");
        document.body.classList.toggle("compared", second !== undefined);
        const drawn =
            first?.corners !== undefined || first?.frames !== undefined || second !== undefined;
        byId("content").hidden = !drawn;
        if (first === undefined || !drawn) return;
        showNumbers(first, second, this.m_speak);
        if (otherFiles) this.m_view.show(first, second);
        this.showSaving();
    }

    private remove(change: () => void, set: setIndex): void {
        change();
        this.show(true);
        // The button that was pressed is gone.
        document.querySelector<HTMLElement>(`[data-set="${set}"] button`)?.focus();
    }

    private captions(first: measurement | undefined, second: measurement | undefined): string[] {
        const caption = (of: measurement | undefined): string[] => {
            if (of?.measuring === undefined) return [];
            const { platform, measuredAt } = of.measuring;
            const date =
                measuredAt === undefined
                    ? this.m_speak.text("noDate")
                    : this.m_speak.date(measuredAt);
            return [
                `${this.m_speak.text("platform")} ${platform}, ${this.m_speak.text("measuredAt")}: ${date}`,
            ];
        };
        return [...caption(first), ...caption(second)];
    }

    private showFailures(): void {
        const lines = this.m_failures.map((each) => {
            const sentence = this.m_speak.text("problemIn", {
                name: each.fileName,
                problem: this.m_speak.problem(each.problem),
            });
            const label = this.m_speak.text("dismiss");
            const dismiss = (): void => {
                this.m_failures = this.m_failures.filter((other) => other !== each);
                this.showFailures();
                document.querySelector<HTMLElement>(".set button")?.focus();
            };
            return make(
                "div",
                { class: "problem" },
                make("span", {}, sentence),
                make("button", { type: "button", click: dismiss }, label),
            );
        });
        byId("problems").replaceChildren(...lines);
    }

    private showNotices(first: measurement | undefined, second: measurement | undefined): void {
        const notices = [
            ...(first?.notices ?? []),
            ...(second?.notices ?? []),
            ...differentPlatforms(first, second),
        ];
        byId("notices").replaceChildren(
            ...notices.map((each) => make("p", { class: "notice" }, this.m_speak.problem(each))),
        );
    }

    private showSaving(): void {
        const button = (key: textKey, click: () => void): HTMLElement =>
            make("button", { type: "button", id: key, click }, this.m_speak.text(key));
        const pictures = [
            button("savePng", () => void this.savePng()),
            button("saveSvg", () => this.saveSvg()),
        ];
        byId("saving").replaceChildren(
            ...(this.m_view.hasView() ? pictures : []),
            button("saveCsv", () => this.saveCsv()),
            button("print", () => window.print()),
        );
    }

    private async savePng(): Promise<void> {
        const taken = this.m_view.raster(this.captions(...this.m_sets.measurements()));
        if (taken !== undefined) download(await pngOf(taken), this.fileName("png"));
    }

    private saveSvg(): void {
        const taken = this.m_view.picture(this.captions(...this.m_sets.measurements()));
        if (taken !== undefined)
            download(new Blob([svgOf(taken)], { type: "image/svg+xml" }), this.fileName("svg"));
    }

    private saveCsv(): void {
        const [first, second] = this.m_sets.measurements();
        if (first === undefined) return;
        const head = {
            title: this.captions(first, second).join(" · "),
            first: this.m_speak.text(second === undefined ? "value" : "firstSet"),
            second: second === undefined ? undefined : this.m_speak.text("secondSet"),
        };
        download(
            new Blob([csvOf(rowsOf(first, second), head, this.m_speak)], { type: "text/csv" }),
            this.fileName("csv"),
        );
    }

    private fileName(extension: string): string {
        const platform = this.m_sets.measurements()[0]?.measuring?.platform ?? "platform";
        return `${safeFileName(platform)}.${extension}`;
    }

    private status(text: string): void {
        byId("status").textContent = text;
    }
}

function differentPlatforms(
    first: measurement | undefined,
    second: measurement | undefined,
): problem[] {
    const [one, other] = [first?.measuring?.platform, second?.measuring?.platform];
    if (one === undefined || other === undefined || one === other) return [];
    return [{ key: "differentPlatforms", values: { first: one, second: other } }];
}

// Lets the browser answer a person before the reading goes on, when it has gone on for a while.
const breath = 30; // in ms
let lastBreath = 0;
function breathe(): Promise<void> {
    if (performance.now() - lastBreath < breath) return Promise.resolve();
    return new Promise((resolve) => {
        setTimeout(() => {
            lastBreath = performance.now();
            resolve();
        }, 0);
    });
}

new page();
