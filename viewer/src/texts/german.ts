// The texts of the page in German.
import type { texts } from "./english";

export const german: texts = {
    title: "Gemessene Plattform",
    language: "Sprache",
    intro: "Ziehen Sie eine Messdatei, ein Ergebnisdokument oder beides auf diese Seite, oder wählen Sie die Dateien aus.",
    privacy: "Die Dateien bleiben auf dieser Seite: Nichts wird gesendet.",
    files: "Dateien",
    firstSet: "Messung",
    secondSet: "Vergleich",
    chooseFirst: "Dateien auswählen",
    chooseSecond: "Dateien zum Vergleich auswählen",
    emptyFirst: "Noch keine Datei",
    emptySecond: "Eine zweite Messung derselben Plattform kann über die erste gelegt werden",
    measuringFile: "Messdatei",
    resultDocument: "Ergebnisdokument",
    remove: "[name] entfernen",
    removeAll: "Alle entfernen",
    platform: "Plattform",
    measuredAt: "Gemessen",
    noDate: "kein lesbares Datum",
    readingFile: "[name] wird gelesen …",
    fileRead: "[name] wurde gelesen.",
    messageOfTool: "Meldung des Programms",
    dismiss: "Schließen",

    view: "Ansicht",
    viewDescription:
        "3D-Bild der Plattform. Pfeiltasten drehen es, mit der Umschalttaste verschieben sie es, Plus und Minus zoomen, 0 zeigt alles.",
    oblique: "Schräg",
    above: "Von oben",
    front: "Von vorn",
    right: "Von rechts",
    zoomIn: "Vergrößern",
    zoomOut: "Verkleinern",
    exaggeration: "Höhen überhöht",
    exaggerated: "Höhen [factor]-fach überhöht",
    factorShort: "[factor]×",
    trueHeights: "Höhen maßstäblich (1×)",
    noWebgl:
        "Dieser Browser kann hier nicht in 3D zeichnen (er bietet kein WebGL). Die Zahlen sind vollständig.",
    legend: "Legende",
    legendFirst: "Zylinder und Ebene, Messung",
    legendSecond: "Zylinder und Ebene, Vergleich",
    legendPlatform: "Achsen X Y Z der Plattform (cs)",
    legendMachine: "Achsen x y z der Maschine (ncs)",
    legendLevel: "Waagerechte auf mittlerer Höhe",
    machineAway:
        "Der Ursprung der Maschine ist [distance] mm entfernt: Ihre Achsen sind neben der Plattform gezeichnet und zeigen nur Richtungen.",
    assumedSize: "Keine Messdatei: Die Ebene ist die von cs und [size] mm breit gezeichnet.",
    savePng: "Bild speichern (PNG)",
    saveSvg: "Bild speichern (SVG)",
    saveCsv: "Zahlen speichern (CSV)",
    print: "Drucken",

    numbers: "Zahlen",
    needsResult:
        "Neigung, Drehung, Ursprung und Koordinatensysteme werden mit dem Ergebnisdokument angezeigt.",
    needsMeasuring: "Zylinder, Abweichungen und Seiten werden mit der Messdatei angezeigt.",
    position: "Lage der Plattform",
    cylinders: "Zylinder",
    sides: "Seiten",
    frames: "Koordinatensysteme",
    group: "Gruppe",
    quantity: "Größe",
    unit: "Einheit",
    value: "Wert",
    difference: "Differenz",
    tiltX: "Neigung um X",
    riseX: "Neigung um X auf [length] mm",
    tiltY: "Neigung um Y",
    riseY: "Neigung um Y auf [length] mm",
    higher: "höher bei Zylinder [names]",
    level: "waagerecht",
    rotationZ: "Drehung um Z",
    origin: "Ursprung",
    heightOffset: "Höhenversatz im Ergebnis",
    normalsApart: "Winkel zwischen den Z-Achsen",
    originsApart: "Abstand der Ursprünge",
    cylinder: "Zylinder",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Abweichung von der Ebene",
    fromRectangle: "Abstand vom Rechteck",
    cornerAngle: "Winkel über 90°",
    side: "Seite",
    diagonal: "Diagonale",
    diagonalDifference: "Differenz der Diagonalen",
    cs: "cs, die Plattform in der Maschine",
    ncs: "ncs, die Maschine in der Plattform",

    formulas: "Wie die Zahlen entstehen",
    formulaSource:
        "cs und ncs stehen im Ergebnisdokument und werden unverändert gezeigt. Alles andere ist aus ihnen und aus den gemessenen Punkten P1 bis P4 abgeleitet:",
    formulaTilt: "Neigung, nach der Rechte-Hand-Regel",
    formulaRise: "Neigung in mm; LX und LY sind die mittleren Längen der Seiten entlang X und Y",
    formulaRotation: "Drehung um Z",
    formulaOrigin: "Ursprung",
    formulaOffset: "Höhenversatz",
    formulaPlane:
        "Abweichung: Abstand von der Ebene durch den Mittelpunkt C mit der kleinsten Quadratsumme; n ist ihre Normale nach oben",
    formulaRectangle:
        "Abstand vom Rechteck R1 bis R4 in dieser Ebene mit der kleinsten Quadratsumme; Q sind die auf die Ebene projizierten Punkte",
    formulaAngle: "Winkel an einer Ecke mit den Nachbarn A und B",
    formulaSides: "Seiten und Diagonalen",
    formulaDifference: "Differenz: zweiter weniger erster Wert; zwischen Achsen und Ursprüngen",
    formulaView:
        "Höhen im Bild bei k-facher Überhöhung, von der mittleren Höhe der ersten Messung aus; die Achsen sind in der überhöhten Ebene und senkrecht zu ihr gezeichnet",
    licences: "Lizenzen der Bestandteile dieser Seite",

    otherPlatform:
        "Die Datei enthält die Plattform „[platform]“, ihr Name nennt „[expected]“. Das Programm weist sie für „[expected]“ zurück.",
    pointTwice: "[name] kommt mehrfach vor; der letzte Eintrag zählt.",
    axesNotSquare:
        "Die Achsen von [element] haben nicht die Länge 1, stehen nicht rechtwinklig oder sind nicht rechtshändig. So hat das Programm sie nicht geschrieben.",
    notInverse: "ncs ist nicht die Umkehrung von cs. So hat das Programm sie nicht geschrieben.",
    noPlane:
        "Die vier Punkte liegen auf einer Geraden oder an einer Stelle: Es gibt weder Ebene noch Rechteck.",
    pointsDown:
        "Die Z-Achse zeigt nach unten: Die Zylinder sind wohl gegen den Uhrzeigersinn nummeriert.",
    otherMeasurement:
        "Der Ursprung des Ergebnisses liegt [distance] mm neben der Mitte der Zylinder: Ergebnis und Messdatei gehören wohl zu verschiedenen Messungen.",
    differentPlatforms:
        "Verglichen werden zwei verschiedene Plattformen: „[first]“ und „[second]“.",

    problemIn: "[name]: [problem]",
    problemAt: "Zeile [line], Spalte [column]: [problem]",
    cannotRead: "Die Datei lässt sich nicht zum Lesen öffnen.",
    fileTooLarge:
        "Die Datei ist größer als [size] MB. Messdateien und Ergebnisdokumente haben wenige Kilobyte.",
    fileEmpty: "Die Datei ist leer.",
    noText: "Die Datei enthält nichts als eine Byte-Reihenfolge-Marke.",
    noTextFile: "Dies ist keine Textdatei: Byte [position] ist eine Null.",
    utf16BigEndian:
        "Der Text ist UTF-16 mit dem höheren Byte voran, was das Programm nicht liest. Speichern Sie ihn als UTF-8.",
    utf16WithoutMark:
        "Der Text ist UTF-16 ohne die Marke FF FE, was das Programm nicht liest. Speichern Sie ihn als UTF-8.",
    declaredUtf16:
        "Die Datei gibt UTF-16 an, ist aber in einzelnen Bytes geschrieben. Das Programm findet nichts darin.",
    declarationTooLong: "Die angegebene Kodierung ist zu lang. Das Programm bricht daran ab.",
    noElement: "Dies ist kein XML: Es enthält kein Element.",
    neitherFile:
        "Dies ist weder eine Messdatei noch ein Ergebnisdokument: Das Wurzelelement ist „[element]“, und es enthält keinen Messpunkt.",
    tagCutOff: "Die Datei ist abgeschnitten: Hier beginnt eine Marke, und nichts folgt.",
    slashInTag: "Auf „/“ in einer Marke muss „>“ folgen.",
    attributeWithoutValue:
        "Ein Attribut hat keinen Wert, oder die Datei ist in einer Marke abgeschnitten.",
    valueWithoutQuote: "Der Wert eines Attributs muss mit einem Anführungszeichen beginnen.",
    valueCutOff:
        "Der Wert, der hier beginnt, hat kein schließendes Anführungszeichen, oder die Datei ist abgeschnitten.",
    elementCutOff:
        "Das Element „[element]“, das hier beginnt, ist nicht geschlossen: Die Datei ist abgeschnitten.",
    otherClosingTag: "Dies ist nicht die schließende Marke von „[element]“, die hier stehen muss.",
    tooManyEntities:
        "Der Text ist so oft maskiert, dass er nicht in brauchbarer Zeit aufgelöst werden kann.",
    endlessReference:
        "Ein Verweis „&#x“ ohne ein bis drei hexadezimale Ziffern und „;“. Das Programm kommt davon nicht zurück.",
    noPlatformName:
        "Das Wurzelelement hat kein PlatformName; das Programm weiß nicht, wessen Daten dies sind.",
    noNumber: "Die Koordinate [axis] ist keine Zahl: „[text]“.",
    notFinite: "Die Koordinate [axis] ist keine endliche Zahl: „[text]“.",
    axesMissing: "Dem Messpunkt „[name]“ fehlt die Achse [axes].",
    unknownPoint:
        "Ein Messpunkt hat den unbekannten Namen „[name]“; es muss cylinder1, cylinder2, cylinder3 oder cylinder4 sein.",
    pointsMissing:
        "Es sind nicht alle vier Zylinder da, oder die Datei ist abgeschnitten. Es fehlen: [names].",
    elementMissing: "Dem Ergebnisdokument fehlt das Element „[element]“.",
    unknownType: "Die Meldung hat den Typ „[type]“; es muss confirm oder error sein.",
    noCoordinates: "Das Attribut [attribute] von [element] enthält nicht drei Zahlen: „[text]“.",
    coordinatesNotFinite:
        "Das Attribut [attribute] von [element] enthält keine endlichen Zahlen: „[text]“.",
};
