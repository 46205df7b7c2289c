// How each number is found, in words and as a formula.
import type { textKey } from "../texts/english";
import type { language } from "../texts/language";
import { byId, make } from "./elements";

const formulas: [textKey, string[]][] = [
    ["formulaTilt", ["X: asin(cs.y.z)", "Y: −asin(cs.x.z)"]],
    [
        "formulaRise",
        [
            "X: cs.y.z · LY, LY = (|P1 − P4| + |P2 − P3|) / 2",
            "Y: −cs.x.z · LX, LX = (|P2 − P1| + |P3 − P4|) / 2",
        ],
    ],
    ["formulaRotation", ["atan2(cs.x.y, cs.x.x)"]],
    ["formulaOrigin", ["cs.o"]],
    ["formulaOffset", ["cs.o.z − (P1.z + P2.z + P3.z + P4.z) / 4"]],
    ["formulaPlane", ["dᵢ = n · (Pᵢ − C), C = (P1 + P2 + P3 + P4) / 4, |n| = 1, Σ dᵢ² → min"]],
    ["formulaRectangle", ["|Qᵢ − Rᵢ|, Qᵢ = Pᵢ − dᵢ n, Σ |Qᵢ − Rᵢ|² → min"]],
    ["formulaAngle", ["∠(A − P, B − P) − 90°"]],
    [
        "formulaSides",
        [
            "1–2: |P2 − P1|, 4–3: |P3 − P4|, 4–1: |P1 − P4|, 3–2: |P2 − P3|",
            "|P3 − P1|, |P4 − P2|, |P3 − P1| − |P4 − P2|",
        ],
    ],
    ["formulaDifference", ["∠(cs₁.z, cs₂.z), |cs₂.o − cs₁.o|"]],
    ["formulaView", ["z′ = k · (z − C.z)"]],
];

export function showFormulas(speak: language): void {
    const items = formulas.flatMap(([key, lines]) => [
        make("dt", {}, speak.text(key)),
        make("dd", {}, ...lines.map((line) => make("div", {}, line))),
    ]);
    byId("formulaList").replaceChildren(
        make("p", {}, speak.text("formulaSource")),
        make("dl", {}, ...items),
    );
}
