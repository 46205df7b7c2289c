// The drawing as SVG, seen as the view on the screen sees it. Shapes lie over each other in the
// order of their depth.
import type { point } from "../numbers/vector";
import type { drawing, drawnArrow, drawnCylinder } from "./drawing";
import type { palette } from "./palette";
import type { picturePoint, projection } from "./view";

export interface picture {
    drawing: drawing;
    palette: palette;
    project: projection;
    width: number;
    height: number;
    caption: string[]; // lines above the drawing
    note: string; // below it
}

export const pictureFont = "system-ui, sans-serif";
export const labelSize = 13;
const captionSize = 15;
const margin = 12;

interface layer {
    depth: number;
    markup: string;
}

export function svgOf(of: picture): string {
    const { drawing, palette, width, height } = of;
    const place = (at: point): picturePoint => {
        const { x, y, depth } = of.project(at);
        return { x: x * width, y: y * height, depth };
    };
    const solid: layer[] = [
        ...drawing.cylinders.map((each) => cylinderLayer(each, place, palette[each.set])),
        ...drawing.arrows.map((each) => arrowLayer(each, place, palette[each.role], drawing.size)),
    ];
    solid.sort((a, b) => b.depth - a.depth);
    const body = [
        `<rect width="${width}" height="${height}" fill="${palette.background}"/>`,
        ...drawing.lines.map((each) => polyline(each.points.map(place), palette[each.role])),
        ...drawing.planes.map((each) =>
            polygon(each.corners.map(place), palette[each.set], 'fill-opacity="0.16"'),
        ),
        ...solid.map(({ markup }) => markup),
        ...drawing.labels.map((each) =>
            text(place(each.at), each.text, palette[each.role], "middle"),
        ),
        ...drawing.cylinders.map((each) => cylinderLabel(each, place, palette[each.set])),
        ...captions(of),
    ];
    return [
        `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}" viewBox="0 0 ${width} ${height}" ` +
            `font-family="${pictureFont}" font-size="${labelSize}">`,
        ...body,
        "</svg>",
        "",
    ].join("\n");
}

export function cylinderText({ set, index }: drawnCylinder): string {
    return String(index + 1) + (set === "first" ? "" : "′");
}

// Beside the cylinder, clear of its top; the second measurement's below.
export function labelPlace(
    of: drawnCylinder,
    place: (at: point) => picturePoint,
): { x: number; y: number } {
    const { x, y } = place(of.set === "first" ? of.top : of.foot);
    return { x, y: y + (of.set === "first" ? -18 : 18) };
}

function cylinderLabel(
    of: drawnCylinder,
    place: (at: point) => picturePoint,
    colour: string,
): string {
    return text(labelPlace(of, place), cylinderText(of), colour, "middle", 'font-weight="bold"');
}

function captions({ caption, note, palette, height }: picture): string[] {
    const lines = caption.map((line, i) =>
        text(
            { x: margin, y: margin + captionSize / 2 + i * 1.4 * captionSize },
            line,
            palette.text,
            "start",
            `font-size="${captionSize}"`,
        ),
    );
    return [
        ...lines,
        text({ x: margin, y: height - margin - labelSize / 2 }, note, palette.text, "start"),
    ];
}

const corners = 24;

function circle(
    of: drawnCylinder,
    middle: point,
    place: (at: point) => picturePoint,
): picturePoint[] {
    return Array.from({ length: corners }, (_, i) => {
        const angle = (2 * Math.PI * i) / corners;
        return place({
            ...middle,
            x: middle.x + of.radius * Math.cos(angle),
            y: middle.y + of.radius * Math.sin(angle),
        });
    });
}

function cylinderLayer(
    of: drawnCylinder,
    place: (at: point) => picturePoint,
    colour: string,
): layer {
    const [top, foot] = [circle(of, of.top, place), circle(of, of.foot, place)];
    const near = meanDepth(top) < meanDepth(foot) ? top : foot;
    const body = polygon(hull([...top, ...foot]), colour, 'fill-opacity="0.75"');
    return {
        depth: meanDepth([...top, ...foot]),
        markup: body + polygon(near, colour, 'fill-opacity="1"'),
    };
}

function meanDepth(points: picturePoint[]): number {
    return points.reduce((sum, { depth }) => sum + depth, 0) / points.length;
}

// Convex, by the monotone chain.
function hull(points: picturePoint[]): picturePoint[] {
    const sorted = [...points].sort((a, b) => a.x - b.x || a.y - b.y);
    const half = (through: picturePoint[]): picturePoint[] => {
        const kept: picturePoint[] = [];
        for (const each of through) {
            while (
                kept.length > 1 &&
                turnOf(kept[kept.length - 2]!, kept[kept.length - 1]!, each) <= 0
            )
                kept.pop();
            kept.push(each);
        }
        return kept.slice(0, -1);
    };
    return [...half(sorted), ...half(sorted.reverse())];
}

function turnOf(a: picturePoint, b: picturePoint, c: picturePoint): number {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

function arrowLayer(
    of: drawnArrow,
    place: (at: point) => picturePoint,
    colour: string,
    size: number,
): layer {
    const [from, to] = [place(of.from), place(of.to)];
    const length = Math.hypot(to.x - from.x, to.y - from.y);
    const width = of.set === "first" ? 3 : 1.8;
    const depth = (from.depth + to.depth) / 2;
    // Seen from its end, an arrow is a dot.
    if (length < 6 * width || size === 0) {
        return {
            depth,
            markup: `<circle cx="${fixed(to.x)}" cy="${fixed(to.y)}" r="${2 * width}" fill="${colour}"/>`,
        };
    }
    const [alongX, alongY] = [(to.x - from.x) / length, (to.y - from.y) / length];
    const neck = { x: to.x - 5 * width * alongX, y: to.y - 5 * width * alongY, depth };
    const side = { x: -2 * width * alongY, y: 2 * width * alongX };
    const head = [
        to,
        { x: neck.x + side.x, y: neck.y + side.y, depth },
        { x: neck.x - side.x, y: neck.y - side.y, depth },
    ];
    const shaft = polyline([from, neck], colour, width);
    return { depth, markup: shaft + polygon(head, colour, 'fill-opacity="1"') };
}

function polygon(points: picturePoint[], colour: string, rest: string): string {
    return `<polygon points="${list(points)}" fill="${colour}" ${rest} stroke="${colour}"/>`;
}

function polyline(points: picturePoint[], colour: string, width = 1): string {
    return `<polyline points="${list(points)}" fill="none" stroke="${colour}" stroke-width="${width}"/>`;
}

function text(
    at: { x: number; y: number },
    content: string,
    colour: string,
    anchor: string,
    rest = "",
): string {
    const place = `x="${fixed(at.x)}" y="${fixed(at.y)}" dy="0.35em" text-anchor="${anchor}"`;
    return `<text ${place} fill="${colour}" ${rest}>${escaped(content)}</text>`;
}

function list(points: picturePoint[]): string {
    return points.map(({ x, y }) => `${fixed(x)},${fixed(y)}`).join(" ");
}

function fixed(value: number): string {
    return String(Number(value.toFixed(2)));
}

function escaped(content: string): string {
    return content.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;");
}
