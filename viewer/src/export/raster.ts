// The picture of the view with its labels and captions in pixels, for PNG and for paper.
import { cylinderText, labelPlace, labelSize, pictureFont, type picture } from "../scene/svg";

// `shapes` is the picture without texts, on a canvas `fineness` times as fine, which is drawn on.
export function withTexts(
    of: picture,
    shapes: HTMLCanvasElement,
    fineness: number,
): HTMLCanvasElement {
    const pen = shapes.getContext("2d")!;
    pen.scale(fineness, fineness);
    pen.textBaseline = "middle";
    drawLabels(pen, of);
    drawCaptions(pen, of);
    return shapes;
}

export function pngOf(canvas: HTMLCanvasElement): Promise<Blob> {
    return new Promise((resolve, reject) => {
        canvas.toBlob(
            (blob) => (blob === null ? reject(new Error("no picture")) : resolve(blob)),
            "image/png",
        );
    });
}

function drawLabels(pen: CanvasRenderingContext2D, of: picture): void {
    const place = (at: Parameters<typeof of.project>[0]): ReturnType<typeof of.project> => {
        const { x, y, depth } = of.project(at);
        return { x: x * of.width, y: y * of.height, depth };
    };
    pen.textAlign = "center";
    pen.font = `${labelSize}px ${pictureFont}`;
    for (const each of of.drawing.labels) {
        pen.fillStyle = of.palette[each.role];
        const { x, y } = place(each.at);
        pen.fillText(each.text, x, y);
    }
    pen.font = `bold ${labelSize}px ${pictureFont}`;
    for (const each of of.drawing.cylinders) {
        pen.fillStyle = of.palette[each.set];
        const { x, y } = labelPlace(each, place);
        pen.fillText(cylinderText(each), x, y);
    }
}

function drawCaptions(pen: CanvasRenderingContext2D, of: picture): void {
    pen.textAlign = "left";
    pen.fillStyle = of.palette.text;
    pen.font = `15px ${pictureFont}`;
    of.caption.forEach((line, i) => pen.fillText(line, 12, 20 + i * 21));
    pen.font = `${labelSize}px ${pictureFont}`;
    pen.fillText(of.note, 12, of.height - 18);
}
