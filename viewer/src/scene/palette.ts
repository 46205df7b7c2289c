// The colours of a drawing, for a light and a dark page. Each stands out from the background by
// three to one at least.
import type { role } from "./drawing";

export type palette = Record<role | "background" | "text", string>;

export const lightPalette: palette = {
    background: "#f6f8fa",
    text: "#1a2129",
    first: "#1f5f99",
    second: "#b45309",
    machine: "#59626c",
    level: "#7d858e",
    axisX: "#c0262d",
    axisY: "#1b7f3b",
    axisZ: "#6b3fb5",
};

export const darkPalette: palette = {
    background: "#171c22",
    text: "#e8edf2",
    first: "#6db3f2",
    second: "#f0a35e",
    machine: "#a8b1bb",
    level: "#7d8791",
    axisX: "#ff7b72",
    axisY: "#57c278",
    axisZ: "#c3a6ff",
};
