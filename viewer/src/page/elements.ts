// Makes elements of the page. All that comes from files or texts goes in as text, never as markup.
type child = Node | string;
type attributes = Record<string, string | number | boolean | ((event: Event) => void) | undefined>;

// Functions become listeners, true an empty attribute; what is undefined or false is left out.
export function make<K extends keyof HTMLElementTagNameMap>(
    name: K,
    given: attributes = {},
    ...children: child[]
): HTMLElementTagNameMap[K] {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(given)) {
        if (typeof value === "function") made.addEventListener(key, value);
        else if (value === true) made.setAttribute(key, "");
        else if (value !== undefined && value !== false) made.setAttribute(key, String(value));
    }
    made.append(...children);
    return made;
}

export function byId<T extends HTMLElement = HTMLElement>(id: string): T {
    const found = document.getElementById(id);
    if (found === null) throw new Error(`no element ${id}`);
    return found as T;
}

export interface tableParts {
    caption?: string;
    heads: string[]; // the first stands over the row heads
    rows: { head: child; cells: child[]; className?: string }[];
    className?: string;
    wide?: string; // the name of a table that may be wider than the screen
}

export function table({ caption, heads, rows, className, wide }: tableParts): HTMLElement {
    const head = make("tr", {}, ...heads.map((text) => make("th", { scope: "col" }, text)));
    const body = rows.map((each) =>
        make(
            "tr",
            { class: each.className },
            make("th", { scope: "row" }, each.head),
            ...each.cells.map((cell) => make("td", {}, cell)),
        ),
    );
    const captions = caption === undefined ? [] : [make("caption", {}, caption)];
    const whole = make(
        "table",
        {},
        ...captions,
        make("thead", {}, head),
        make("tbody", {}, ...body),
    );
    // A wide table scrolls on a narrow screen, also by keys.
    const scrolled = wide === undefined ? {} : { tabindex: 0, role: "group", "aria-label": wide };
    return make("div", { class: `scrolled ${className ?? ""}`.trim(), ...scrolled }, whole);
}
