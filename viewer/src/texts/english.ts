// The texts of the page. Names in brackets are filled in; the other languages have the same keys.
export const english = {
    // Head and files
    title: "Measured platform",
    language: "Language",
    intro: "Drop a measuring file, a result document, or both on this page, or choose them.",
    privacy: "The files stay in this page: nothing is sent anywhere.",
    files: "Files",
    firstSet: "Measurement",
    secondSet: "Compared with",
    chooseFirst: "Choose files",
    chooseSecond: "Choose files to compare",
    emptyFirst: "No file yet",
    emptySecond: "A second measurement of the same platform can be laid over the first",
    measuringFile: "Measuring file",
    resultDocument: "Result document",
    remove: "Remove [name]",
    removeAll: "Remove all",
    platform: "Platform",
    measuredAt: "Measured",
    noDate: "no readable date",
    readingFile: "Reading [name] …",
    fileRead: "[name] has been read.",
    messageOfTool: "Message of the tool",
    dismiss: "Dismiss",

    // View
    view: "View",
    viewDescription:
        "3D picture of the platform. Arrow keys turn it, with Shift they move it, plus and minus zoom, 0 shows all.",
    oblique: "Oblique",
    above: "From above",
    front: "From the front",
    right: "From the right",
    zoomIn: "Zoom in",
    zoomOut: "Zoom out",
    exaggeration: "Heights exaggerated",
    exaggerated: "Heights exaggerated [factor]×",
    factorShort: "[factor]×",
    trueHeights: "Heights true to scale (1×)",
    noWebgl: "This browser can't draw in 3D here (it offers no WebGL). The numbers are complete.",
    legend: "Legend",
    legendFirst: "Cylinders and plane, measurement",
    legendSecond: "Cylinders and plane, compared",
    legendPlatform: "Platform's axes X Y Z (cs)",
    legendMachine: "Machine's axes x y z (ncs)",
    legendLevel: "Horizontal at the mean height",
    machineAway:
        "The machine's origin is [distance] mm away: its axes are drawn beside the platform and show directions only.",
    assumedSize: "No measuring file: the plane is that of cs, drawn [size] mm wide.",
    savePng: "Save picture (PNG)",
    saveSvg: "Save picture (SVG)",
    saveCsv: "Save numbers (CSV)",
    print: "Print",

    // Numbers
    numbers: "Numbers",
    needsResult:
        "Tilt, rotation, origin and coordinate systems are shown with the result document.",
    needsMeasuring: "Cylinders, deviations and sides are shown with the measuring file.",
    position: "How the platform stands",
    cylinders: "Cylinders",
    sides: "Sides",
    frames: "Coordinate systems",
    group: "Group",
    quantity: "Quantity",
    unit: "Unit",
    value: "Value",
    difference: "Difference",
    tiltX: "Tilt about X",
    riseX: "Tilt about X, over [length] mm",
    tiltY: "Tilt about Y",
    riseY: "Tilt about Y, over [length] mm",
    higher: "higher at cylinders [names]",
    level: "level",
    rotationZ: "Rotation about Z",
    origin: "Origin",
    heightOffset: "Height offset in the result",
    normalsApart: "Angle between the Z axes",
    originsApart: "Distance between the origins",
    cylinder: "Cylinder",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Deviation from plane",
    fromRectangle: "Distance from rectangle",
    cornerAngle: "Angle beyond 90°",
    side: "Side",
    diagonal: "Diagonal",
    diagonalDifference: "Difference of the diagonals",
    cs: "cs, the platform in the machine",
    ncs: "ncs, the machine in the platform",

    // Formulas
    formulas: "How the numbers are found",
    formulaSource:
        "cs and ncs stand in the result document and are shown as they are. Everything else is derived from them and from the measured points P1 to P4:",
    formulaTilt: "Tilt, by the right-hand rule",
    formulaRise: "Tilt in mm, LX and LY being the mean lengths of the sides along X and Y",
    formulaRotation: "Rotation about Z",
    formulaOrigin: "Origin",
    formulaOffset: "Height offset",
    formulaPlane:
        "Deviation: distance from the plane through the mean C whose sum of squares is least; n is its normal, upwards",
    formulaRectangle:
        "Distance from the rectangle R1 to R4 in that plane whose sum of squares is least; Q are the points projected onto the plane",
    formulaAngle: "Angle at a corner, A and B being its neighbours",
    formulaSides: "Sides and diagonals",
    formulaDifference: "Difference: second less first; between axes and origins",
    formulaView:
        "Heights in the picture, k being the exaggeration, from the mean height of the first measurement; axes are drawn in and at right angles to the exaggerated plane",
    licences: "Licences of what this page contains",

    // Notices: the file is shown, but something is to be known
    otherPlatform:
        "The file holds platform “[platform]”, its name says “[expected]”. The tool refuses it for “[expected]”.",
    pointTwice: "[name] stands there more than once; the last one counts.",
    axesNotSquare:
        "The axes of [element] are not of length 1, at right angles and right-handed. The tool did not write them so.",
    notInverse: "ncs is not the inverse of cs. The tool did not write them so.",
    noPlane: "The four points lie on one line or in one place: there is no plane and no rectangle.",
    pointsDown: "The Z axis points down: the cylinders seem to be numbered anticlockwise.",
    otherMeasurement:
        "The origin of the result is [distance] mm off the middle of the cylinders: result and measuring file seem to be of different measurements.",
    differentPlatforms: "Two different platforms are compared: “[first]” and “[second]”.",

    // Problems: the file can't be used
    problemIn: "[name]: [problem]",
    problemAt: "Line [line], column [column]: [problem]",
    cannotRead: "The file can't be opened for reading.",
    fileTooLarge:
        "The file is larger than [size] MB. Measuring files and result documents have a few kilobytes.",
    fileEmpty: "The file is empty.",
    noText: "The file holds nothing but a byte-order mark.",
    noTextFile: "This is no text file: there is a zero at byte [position].",
    utf16BigEndian:
        "The text is UTF-16 with the high byte first, which the tool does not read. Save it as UTF-8.",
    utf16WithoutMark:
        "The text is UTF-16 without the mark FF FE, which the tool does not read. Save it as UTF-8.",
    declaredUtf16:
        "The file declares UTF-16 but is written in single bytes. The tool finds nothing in it.",
    declarationTooLong: "The declared encoding is too long. The tool ends abnormally on it.",
    noElement: "This is no XML: there is no element in it.",
    neitherFile:
        "This is neither a measuring file nor a result document: the root element is “[element]”, and no measuring point is in it.",
    tagCutOff: "The file is cut off: a tag begins here and nothing follows.",
    slashInTag: "A “/” in a tag must be followed by “>”.",
    attributeWithoutValue: "An attribute has no value, or the file is cut off inside a tag.",
    valueWithoutQuote: "The value of an attribute must begin with a quotation mark.",
    valueCutOff:
        "The value that begins here has no closing quotation mark, or the file is cut off.",
    elementCutOff: "The element “[element]” that begins here is not closed: the file is cut off.",
    otherClosingTag: "This is not the closing tag of “[element]” that has to come here.",
    tooManyEntities: "The text is escaped so often that it can't be resolved in useful time.",
    endlessReference:
        "A reference “&#x” without one to three hexadecimal digits and “;”. The tool does not come back from it.",
    noPlatformName:
        "The root element has no PlatformName, so the tool does not know whose data this is.",
    noNumber: "The [axis] coordinate is no number: “[text]”.",
    notFinite: "The [axis] coordinate is no finite number: “[text]”.",
    axesMissing: "The measuring point “[name]” lacks the axis [axes].",
    unknownPoint:
        "A measuring point has the unknown name “[name]”; it must be cylinder1, cylinder2, cylinder3 or cylinder4.",
    pointsMissing: "Not all four cylinders are there, or the file is cut off. Missing: [names].",
    elementMissing: "The result document lacks the element “[element]”.",
    unknownType: "The message has the type “[type]”; it must be confirm or error.",
    noCoordinates: "The attribute [attribute] of [element] does not hold three numbers: “[text]”.",
    coordinatesNotFinite:
        "The attribute [attribute] of [element] holds no finite numbers: “[text]”.",
};

export type textKey = keyof typeof english;
export type texts = Record<textKey, string>;
