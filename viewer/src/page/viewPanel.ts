// The view with what belongs to it: buttons, keys, labels, the values of a point, the exaggeration
// and the legend.
import { withTexts } from "../export/raster";
import type { measurement } from "../numbers/measurement";
import { type row, rowsOf } from "../numbers/rows";
import { type drawing, drawingOf, type drawnCylinder, fittingFactor } from "../scene/drawing";
import { darkPalette, lightPalette, type palette } from "../scene/palette";
import { cylinderText, labelPlace, type picture } from "../scene/svg";
import { view, type viewpoint } from "../scene/view";
import type { textKey } from "../texts/english";
import type { language } from "../texts/language";
import { byId, make } from "./elements";

// 1 to 9, 10 to 90, 100 to 900, 1000.
export const factors = [1, 10, 100]
    .flatMap((decade) => [1, 2, 3, 4, 5, 6, 7, 8, 9].map((digit) => digit * decade))
    .concat(1000);

// Pixels of an exported picture for one on the screen.
const fineness = 2;

export class viewPanel {
    private readonly m_canvas = byId<HTMLCanvasElement>("canvas");
    private readonly m_slider = byId<HTMLInputElement>("factor");
    private m_view: view | undefined;
    private m_begun = false;
    private m_first: measurement | undefined;
    private m_second: measurement | undefined;
    private m_drawing: drawing | undefined;
    private m_labels: { element: HTMLElement; place: () => { x: number; y: number } }[] = [];
    private m_shownBy: HTMLElement | drawnCylinder | undefined; // what the tooltip is open for

    constructor(private m_speak: language) {
        this.m_slider.max = String(factors.length - 1);
        this.m_slider.addEventListener("input", () => this.changeFactor());
        document.addEventListener("keydown", (event) => {
            if (event.key === "Escape") this.hideValues();
        });
        matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => this.redraw());
        window.addEventListener("beforeprint", () => this.beforePrint());
        window.addEventListener("afterprint", () => byId("printed").replaceChildren());
    }

    // Other files: a fitting exaggeration and an oblique look.
    show(first: measurement, second: measurement | undefined): void {
        [this.m_first, this.m_second] = [first, second];
        this.begin();
        this.m_slider.value = String(factors.indexOf(fittingFactor(first, second)));
        this.hideValues();
        this.redraw();
        this.m_view?.lookFrom("oblique");
    }

    speak(speak: language): void {
        this.m_speak = speak;
        this.m_canvas.setAttribute("aria-label", speak.text("viewDescription"));
        this.showTools();
        this.hideValues();
        if (this.m_first !== undefined) this.redraw();
    }

    hasView(): boolean {
        return this.m_view !== undefined;
    }

    // What an export shows; in light colours, as it goes into reports.
    picture(caption: string[]): picture | undefined {
        if (this.m_view === undefined || this.m_drawing === undefined) return undefined;
        const { clientWidth: width, clientHeight: height } = this.m_canvas;
        const project = this.m_view.projection();
        return {
            drawing: this.m_drawing,
            palette: lightPalette,
            project,
            width,
            height,
            caption,
            note: this.factorText(),
        };
    }

    // The same in pixels.
    raster(caption: string[]): HTMLCanvasElement | undefined {
        const of = this.picture(caption);
        if (of === undefined) return undefined;
        this.m_view!.show(of.drawing, lightPalette);
        const made = withTexts(of, this.m_view!.picture(fineness), fineness);
        this.m_view!.show(of.drawing, this.palette());
        return made;
    }

    private factor(): number {
        return factors[Number(this.m_slider.value)]!;
    }

    private factorText(): string {
        const factor = this.factor();
        return factor === 1
            ? this.m_speak.text("trueHeights")
            : this.m_speak.text("exaggerated", { factor });
    }

    private changeFactor(): void {
        if (this.m_first === undefined) return;
        this.redraw();
        this.m_view?.fit();
    }

    private redraw(): void {
        if (this.m_first === undefined) return;
        this.m_drawing = drawingOf(this.m_first, this.m_second, this.factor());
        const shown = `${this.m_speak.text("factorShort", { factor: this.factor() })}`;
        byId("factorText").textContent = shown;
        this.m_slider.setAttribute("aria-valuetext", shown);
        byId("caption").textContent = this.factorText();
        this.showLegend(this.m_drawing);
        this.makeLabels(this.m_drawing);
        this.m_view?.show(this.m_drawing, this.palette());
    }

    private palette(): palette {
        return matchMedia("(prefers-color-scheme: dark)").matches ? darkPalette : lightPalette;
    }

    // Browsers print a 3D canvas as they like, or not at all.
    private beforePrint(): void {
        this.hideValues();
        const picture = this.raster([]);
        if (picture !== undefined) byId("printed").replaceChildren(picture);
    }

    // Only when there is something to draw, as the beginning of 3D takes a while.
    private begin(): void {
        if (this.m_begun) return;
        this.m_begun = true;
        this.m_view = viewOn(this.m_canvas);
        byId("noWebgl").hidden = this.m_view !== undefined;
        for (const id of ["figure", "exaggeration", "legend"])
            byId(id).hidden = this.m_view === undefined;
        if (this.m_view === undefined) return;
        this.m_view.onChange = () => this.placeLabels();
        this.m_canvas.addEventListener("keydown", (event) => this.onKey(event));
        this.m_canvas.addEventListener("pointermove", (event) => this.onPointer(event));
        byId("figure").addEventListener("pointerleave", () => this.hideValues());
        this.showTools();
    }

    private showTools(): void {
        if (this.m_view === undefined) return;
        const shown = this.m_view;
        const button = (key: textKey, click: () => void, sign?: string): HTMLElement => {
            const name = this.m_speak.text(key);
            const named = sign === undefined ? {} : { title: name, "aria-label": name };
            return make("button", { type: "button", id: key, click, ...named }, sign ?? name);
        };
        const looks: viewpoint[] = ["oblique", "above", "front", "right"];
        byId("viewTools").replaceChildren(
            ...looks.map((each) => button(each, () => shown.lookFrom(each))),
            button("zoomIn", () => shown.zoom(1), "+"),
            button("zoomOut", () => shown.zoom(-1), "−"),
        );
    }

    private onKey(event: KeyboardEvent): void {
        if (event.ctrlKey || event.altKey || event.metaKey) return;
        const shown = this.m_view!;
        const arrows: Record<string, [number, number]> = {
            ArrowLeft: [-1, 0],
            ArrowRight: [1, 0],
            ArrowUp: [0, 1],
            ArrowDown: [0, -1],
        };
        const arrow = arrows[event.key];
        if (arrow !== undefined && event.shiftKey) shown.move(arrow[0] * 0.05, arrow[1] * 0.05);
        else if (arrow !== undefined) shown.turn(arrow[0], arrow[1]);
        else if (event.key === "+" || event.key === "=") shown.zoom(1);
        else if (event.key === "-") shown.zoom(-1);
        else if (event.key === "0") shown.fit();
        else return;
        event.preventDefault();
    }

    private onPointer(event: PointerEvent): void {
        const hit =
            event.buttons === 0 ? this.m_view!.cylinderAt(event.offsetX, event.offsetY) : undefined;
        if (hit === undefined) this.hideValues();
        else if (hit !== this.m_shownBy) this.showValues(hit, hit);
    }

    private makeLabels(drawn: drawing): void {
        const place = (
            at: Parameters<typeof labelPlace>[0]["top"],
        ): { x: number; y: number; depth: number } => {
            const { x, y, depth } = this.m_view!.projection()(at);
            return { x: x * this.m_canvas.clientWidth, y: y * this.m_canvas.clientHeight, depth };
        };
        const axes = drawn.labels.map((each) => ({
            element: make(
                "span",
                { class: each.role, "aria-hidden": "true" },
                each.text,
            ) as HTMLElement,
            place: () => place(each.at),
        }));
        const cylinders = drawn.cylinders.map((each) => ({
            element: this.cylinderButton(each) as HTMLElement,
            place: () => labelPlace(each, place),
        }));
        this.m_labels = this.m_view === undefined ? [] : [...axes, ...cylinders];
        byId("labels").replaceChildren(...this.m_labels.map(({ element }) => element));
    }

    private cylinderButton(of: drawnCylinder): HTMLElement {
        const set =
            this.m_second === undefined
                ? ""
                : ` (${this.m_speak.text(of.set === "first" ? "firstSet" : "secondSet")})`;
        const values = this.valuesOf(of).map(([name, value]) => `${name} ${value}`);
        const made = make(
            "button",
            {
                type: "button",
                class: of.set,
                "aria-label": `${cylinderText(of)} ${this.m_speak.text("cylinder")}${set}: ${values.join(", ")}`,
            },
            cylinderText(of),
        );
        for (const event of ["focus", "pointerenter", "click"])
            made.addEventListener(event, () => this.showValues(of, made));
        made.addEventListener("blur", () => this.hideValues());
        return made;
    }

    private placeLabels(): void {
        if (this.m_canvas.clientWidth === 0) return;
        for (const { element, place } of this.m_labels) {
            const { x, y } = place();
            element.style.left = `${x}px`;
            element.style.top = `${y}px`;
        }
    }

    private valuesOf(of: drawnCylinder): [name: string, value: string][] {
        const detail = String(of.index + 1);
        const from = of.set === "first" ? this.m_first! : this.m_second!;
        const own = (each: row): boolean => each.group === "cylinders" && each.detail === detail;
        return rowsOf(from, undefined)
            .filter(own)
            .map((each) => [
                this.m_speak.text(each.label),
                `${this.m_speak.number(each.first!, each.decimals, each.signed)}${each.unit === "mm" ? "\u00a0" : ""}${each.unit}`,
            ]);
    }

    private showValues(of: drawnCylinder, by: HTMLElement | drawnCylinder): void {
        this.m_shownBy = by;
        const tooltip = byId("tooltip");
        const items = this.valuesOf(of).flatMap(([name, value]) => [
            make("dt", {}, name),
            make("dd", {}, value),
        ]);
        const head = `${this.m_speak.text("cylinder")} ${cylinderText(of)}`;
        tooltip.replaceChildren(make("strong", { class: of.set }, head), make("dl", {}, ...items));
        tooltip.hidden = false;
        this.placeTooltip(of, tooltip);
    }

    // Beside the cylinder, and inside the picture.
    private placeTooltip(of: drawnCylinder, tooltip: HTMLElement): void {
        const { x, y } = this.m_view!.projection()(of.top);
        const [width, height] = [this.m_canvas.clientWidth, this.m_canvas.clientHeight];
        const left = x < 0.5 ? x * width + 18 : x * width - 18 - tooltip.offsetWidth;
        const top = y * height - tooltip.offsetHeight / 2;
        tooltip.style.left = `${Math.max(4, Math.min(width - tooltip.offsetWidth - 4, left))}px`;
        tooltip.style.top = `${Math.max(4, Math.min(height - tooltip.offsetHeight - 4, top))}px`;
    }

    private hideValues(): void {
        this.m_shownBy = undefined;
        byId("tooltip").hidden = true;
    }

    private showLegend(drawn: drawing): void {
        const has = (set: string): boolean =>
            [...drawn.cylinders, ...drawn.planes].some((each) => each.set === set);
        const speak = this.m_speak;
        const entries: [boolean, string, string, string][] = [
            [has("first"), "first", "mark", speak.text("legendFirst")],
            [has("second"), "second", "mark", speak.text("legendSecond")],
            [
                drawn.arrows.some(({ set }) => set !== "machine"),
                "axes",
                "mark axes",
                speak.text("legendPlatform"),
            ],
            [
                drawn.arrows.some(({ set }) => set === "machine"),
                "machine",
                "mark line",
                speak.text("legendMachine"),
            ],
            [drawn.lines.length > 0, "level", "mark line", speak.text("legendLevel")],
        ];
        const items = entries
            .filter(([shown]) => shown)
            .map(([, role, mark, text]) =>
                make("li", {}, make("span", { class: role }, make("span", { class: mark })), text),
            );
        const notes: string[] = [];
        if (drawn.machineAway !== undefined)
            notes.push(speak.text("machineAway", { distance: drawn.machineAway }));
        if (drawn.assumedSize !== undefined)
            notes.push(speak.text("assumedSize", { size: drawn.assumedSize }));
        byId("legend").replaceChildren(
            make("ul", { "aria-label": speak.text("legend") }, ...items),
            ...notes.map((note) => make("p", { class: "quiet" }, note)),
        );
    }
}

function viewOn(canvas: HTMLCanvasElement): view | undefined {
    try {
        return new view(canvas);
    } catch {
        return undefined;
    }
}
