// The two places for files: what lies there, what the tool had to say, and buttons to choose and to
// remove; and files dropped anywhere on the page.
import type { readDocument } from "../reading/readFile";
import type { language } from "../texts/language";
import { byId, make } from "./elements";
import type { fileSet, fileSets, setIndex } from "./sets";

export interface fileActions {
    add: (files: File[], set?: setIndex) => void;
    remove: (set: setIndex, kind: readDocument["kind"]) => void;
    clear: () => void;
}

export function showFiles(sets: fileSets, speak: language, actions: fileActions): void {
    const cards = ([0, 1] as const).map((index) =>
        card(index, sets.at(index), sets.isEmpty(index), speak, actions),
    );
    byId("sets").replaceChildren(...cards);
    byId("intro").hidden = !sets.isEmpty(0) || !sets.isEmpty(1);
}

function card(
    index: setIndex,
    set: fileSet,
    empty: boolean,
    speak: language,
    actions: fileActions,
): HTMLElement {
    const first = index === 0;
    const headId = `set${index}`;
    const files = [set.measuring, set.result].filter((each) => each !== undefined);
    const lines = files.map((each) => fileLine(each, index, speak, actions));
    const message = set.result === undefined ? [] : [messageOf(set.result, speak)];
    const hint = make("p", { class: "quiet" }, speak.text(first ? "emptyFirst" : "emptySecond"));
    const made = make(
        "section",
        {
            class: `set ${first ? "one" : "other"}${empty ? "" : " filled"}`,
            "aria-labelledby": headId,
        },
        make(
            "div",
            { class: "head" },
            make("h3", { id: headId }, speak.text(first ? "firstSet" : "secondSet")),
            ...chooser(index, empty, speak, actions),
        ),
        ...(empty ? [hint] : [make("ul", {}, ...lines)]),
        ...message,
    );
    made.dataset.set = String(index);
    return made;
}

function fileLine(
    file: readDocument,
    index: setIndex,
    speak: language,
    actions: fileActions,
): HTMLElement {
    const kind = speak.text(file.kind === "measuring" ? "measuringFile" : "resultDocument");
    const name = speak.text("remove", { name: file.fileName });
    return make(
        "li",
        {},
        make("span", { class: "kind" }, kind),
        make("span", { class: "fileName" }, file.fileName),
        make(
            "button",
            {
                type: "button",
                title: name,
                "aria-label": name,
                click: () => actions.remove(index, file.kind),
            },
            "×",
        ),
    );
}

function chooser(
    index: setIndex,
    empty: boolean,
    speak: language,
    actions: fileActions,
): HTMLElement[] {
    const label = speak.text(index === 0 ? "chooseFirst" : "chooseSecond");
    const input = make("input", {
        type: "file",
        multiple: true,
        accept: ".xml,text/xml",
        hidden: true,
        id: `choose${index}`,
    });
    input.addEventListener("change", () => {
        actions.add([...(input.files ?? [])], index);
        input.value = ""; // so that the same file can be chosen again
    });
    const choose = make(
        "button",
        {
            type: "button",
            class: empty && index === 0 ? "main" : undefined,
            click: () => input.click(),
        },
        label + " …",
    );
    const clear = make("button", { type: "button", click: actions.clear }, speak.text("removeAll"));
    return [
        make("div", { class: "tools" }, choose, ...(index === 0 && !empty ? [clear] : [])),
        input,
    ];
}

function messageOf(result: NonNullable<fileSet["result"]>, speak: language): HTMLElement {
    return make(
        "div",
        { class: `message ${result.type}` },
        make(
            "p",
            {},
            make("span", { class: "quiet" }, `${speak.text("messageOfTool")}: `),
            make("strong", {}, result.title),
        ),
        make("div", { class: "said" }, result.message),
    );
}

// Files may be dropped anywhere; on the second place they go there.
export function takeDrops(add: fileActions["add"]): void {
    const body = document.body;
    const under = (event: DragEvent): HTMLElement | null =>
        (event.target as Element | null)?.closest<HTMLElement>(".set") ?? null;
    const mark = (over: HTMLElement | null): void => {
        for (const each of document.querySelectorAll(".set"))
            each.classList.toggle("under", each === over);
    };
    window.addEventListener("dragover", (event) => {
        event.preventDefault();
        body.classList.add("dropping");
        mark(under(event));
    });
    window.addEventListener("dragleave", (event) => {
        if (event.relatedTarget === null) body.classList.remove("dropping");
    });
    window.addEventListener("drop", (event) => {
        event.preventDefault();
        body.classList.remove("dropping");
        const over = under(event);
        mark(null);
        const files = [...(event.dataTransfer?.files ?? [])];
        add(files, over?.dataset.set === "1" ? 1 : undefined);
    });
}
