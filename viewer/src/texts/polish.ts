// The texts of the page in Polish.
import type { texts } from "./english";

export const polish: texts = {
    title: "Zmierzona platforma",
    language: "Język",
    intro: "Upuść na tę stronę plik pomiarowy, dokument wyniku lub oba, albo wybierz je.",
    privacy: "Pliki pozostają na tej stronie: nic nie jest wysyłane.",
    files: "Pliki",
    firstSet: "Pomiar",
    secondSet: "Porównanie",
    chooseFirst: "Wybierz pliki",
    chooseSecond: "Wybierz pliki do porównania",
    emptyFirst: "Brak pliku",
    emptySecond: "Drugi pomiar tej samej platformy można nałożyć na pierwszy",
    measuringFile: "Plik pomiarowy",
    resultDocument: "Dokument wyniku",
    remove: "Usuń [name]",
    removeAll: "Usuń wszystko",
    platform: "Platforma",
    measuredAt: "Data pomiaru",
    noDate: "brak czytelnej daty",
    readingFile: "Czytanie [name] …",
    fileRead: "Wczytano [name].",
    messageOfTool: "Komunikat programu",
    dismiss: "Zamknij",

    view: "Widok",
    viewDescription:
        "Obraz 3D platformy. Klawisze strzałek obracają go, z klawiszem Shift przesuwają, plus i minus zmieniają skalę, 0 pokazuje wszystko.",
    oblique: "Ukośnie",
    above: "Z góry",
    front: "Z przodu",
    right: "Z prawej",
    zoomIn: "Powiększ",
    zoomOut: "Pomniejsz",
    exaggeration: "Przewyższenie wysokości",
    exaggerated: "Wysokości przewyższone [factor]×",
    factorShort: "[factor]×",
    trueHeights: "Wysokości w skali (1×)",
    noWebgl: "Ta przeglądarka nie może tu rysować w 3D (nie oferuje WebGL). Liczby są kompletne.",
    legend: "Legenda",
    legendFirst: "Cylindry i płaszczyzna, pomiar",
    legendSecond: "Cylindry i płaszczyzna, porównanie",
    legendPlatform: "Osie X Y Z platformy (cs)",
    legendMachine: "Osie x y z maszyny (ncs)",
    legendLevel: "Poziom na średniej wysokości",
    machineAway:
        "Początek układu maszyny jest oddalony o [distance] mm: jego osie narysowano obok platformy i pokazują tylko kierunki.",
    assumedSize:
        "Brak pliku pomiarowego: płaszczyzna pochodzi z cs i ma na rysunku szerokość [size] mm.",
    savePng: "Zapisz obraz (PNG)",
    saveSvg: "Zapisz obraz (SVG)",
    saveCsv: "Zapisz liczby (CSV)",
    print: "Drukuj",

    numbers: "Liczby",
    needsResult:
        "Pochylenie, obrót, początek i układy współrzędnych są pokazywane z dokumentem wyniku.",
    needsMeasuring: "Cylindry, odchyłki i boki są pokazywane z plikiem pomiarowym.",
    position: "Położenie platformy",
    cylinders: "Cylindry",
    sides: "Boki",
    frames: "Układy współrzędnych",
    group: "Grupa",
    quantity: "Wielkość",
    unit: "Jednostka",
    value: "Wartość",
    difference: "Różnica",
    tiltX: "Pochylenie wokół X",
    riseX: "Pochylenie wokół X na [length] mm",
    tiltY: "Pochylenie wokół Y",
    riseY: "Pochylenie wokół Y na [length] mm",
    higher: "wyżej przy cylindrach [names]",
    level: "poziomo",
    rotationZ: "Obrót wokół Z",
    origin: "Początek",
    heightOffset: "Przesunięcie wysokości w wyniku",
    normalsApart: "Kąt między osiami Z",
    originsApart: "Odległość początków",
    cylinder: "Cylinder",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Odchyłka od płaszczyzny",
    fromRectangle: "Odległość od prostokąta",
    cornerAngle: "Kąt ponad 90°",
    side: "Bok",
    diagonal: "Przekątna",
    diagonalDifference: "Różnica przekątnych",
    cs: "cs, platforma w maszynie",
    ncs: "ncs, maszyna w platformie",

    formulas: "Jak powstają liczby",
    formulaSource:
        "cs i ncs znajdują się w dokumencie wyniku i są pokazane bez zmian. Wszystko inne wyprowadzono z nich i ze zmierzonych punktów od P1 do P4:",
    formulaTilt: "Pochylenie, według reguły prawej dłoni",
    formulaRise: "Pochylenie w mm; LX i LY to średnie długości boków wzdłuż X i Y",
    formulaRotation: "Obrót wokół Z",
    formulaOrigin: "Początek",
    formulaOffset: "Przesunięcie wysokości",
    formulaPlane:
        "Odchyłka: odległość od płaszczyzny przez średnią C o najmniejszej sumie kwadratów; n to jej normalna skierowana w górę",
    formulaRectangle:
        "Odległość od prostokąta od R1 do R4 w tej płaszczyźnie o najmniejszej sumie kwadratów; Q to punkty zrzutowane na płaszczyznę",
    formulaAngle: "Kąt przy narożniku z sąsiadami A i B",
    formulaSides: "Boki i przekątne",
    formulaDifference: "Różnica: druga wartość minus pierwsza; między osiami i początkami",
    formulaView:
        "Wysokości na obrazie przy przewyższeniu k, od średniej wysokości pierwszego pomiaru; osie narysowano w przewyższonej płaszczyźnie i prostopadle do niej",
    licences: "Licencje składników tej strony",

    otherPlatform:
        "Plik zawiera platformę „[platform]”, a jego nazwa podaje „[expected]”. Program odrzuca go dla „[expected]”.",
    pointTwice: "[name] występuje więcej niż raz; liczy się ostatni.",
    axesNotSquare:
        "Osie [element] nie mają długości 1, nie są prostopadłe lub nie są prawoskrętne. Program ich tak nie zapisał.",
    notInverse: "ncs nie jest odwrotnością cs. Program ich tak nie zapisał.",
    noPlane:
        "Cztery punkty leżą na jednej prostej lub w jednym miejscu: nie ma płaszczyzny ani prostokąta.",
    pointsDown:
        "Oś Z skierowana jest w dół: cylindry są chyba ponumerowane przeciwnie do ruchu wskazówek zegara.",
    otherMeasurement:
        "Początek z wyniku leży [distance] mm od środka cylindrów: wynik i plik pomiarowy pochodzą chyba z różnych pomiarów.",
    differentPlatforms: "Porównywane są dwie różne platformy: „[first]” i „[second]”.",

    problemIn: "[name]: [problem]",
    problemAt: "Wiersz [line], kolumna [column]: [problem]",
    cannotRead: "Nie można otworzyć pliku do odczytu.",
    fileTooLarge:
        "Plik jest większy niż [size] MB. Pliki pomiarowe i dokumenty wyniku mają kilka kilobajtów.",
    fileEmpty: "Plik jest pusty.",
    noText: "Plik zawiera tylko znacznik kolejności bajtów.",
    noTextFile: "To nie jest plik tekstowy: bajt [position] jest zerem.",
    utf16BigEndian:
        "Tekst jest w UTF-16 ze starszym bajtem na początku, czego program nie czyta. Zapisz go jako UTF-8.",
    utf16WithoutMark:
        "Tekst jest w UTF-16 bez znacznika FF FE, czego program nie czyta. Zapisz go jako UTF-8.",
    declaredUtf16:
        "Plik deklaruje UTF-16, ale jest zapisany pojedynczymi bajtami. Program niczego w nim nie znajduje.",
    declarationTooLong:
        "Zadeklarowane kodowanie jest zbyt długie. Program kończy się na nim nieprawidłowo.",
    noElement: "To nie jest XML: nie ma w nim żadnego elementu.",
    neitherFile:
        "To ani plik pomiarowy, ani dokument wyniku: element główny to „[element]” i nie ma w nim punktu pomiarowego.",
    tagCutOff: "Plik jest ucięty: tu zaczyna się znacznik i nic dalej nie ma.",
    slashInTag: "Po „/” w znaczniku musi następować „>”.",
    attributeWithoutValue: "Atrybut nie ma wartości albo plik jest ucięty wewnątrz znacznika.",
    valueWithoutQuote: "Wartość atrybutu musi zaczynać się cudzysłowem.",
    valueCutOff:
        "Wartość, która się tu zaczyna, nie ma cudzysłowu zamykającego albo plik jest ucięty.",
    elementCutOff:
        "Element „[element]”, który się tu zaczyna, nie jest zamknięty: plik jest ucięty.",
    otherClosingTag: "To nie jest znacznik zamykający „[element]”, który powinien tu być.",
    tooManyEntities:
        "Tekst jest zakodowany tyle razy, że nie da się go rozwinąć w rozsądnym czasie.",
    endlessReference:
        "Odwołanie „&#x” bez jednej do trzech cyfr szesnastkowych i „;”. Program z niego nie wraca.",
    noPlatformName: "Element główny nie ma atrybutu PlatformName: program nie wie, czyje to dane.",
    noNumber: "Współrzędna [axis] nie jest liczbą: „[text]”.",
    notFinite: "Współrzędna [axis] nie jest liczbą skończoną: „[text]”.",
    axesMissing: "Punktowi pomiarowemu „[name]” brakuje osi [axes].",
    unknownPoint:
        "Punkt pomiarowy ma nieznaną nazwę „[name]”; musi to być cylinder1, cylinder2, cylinder3 lub cylinder4.",
    pointsMissing: "Nie ma wszystkich czterech cylindrów albo plik jest ucięty. Brakuje: [names].",
    elementMissing: "W dokumencie wyniku brakuje elementu „[element]”.",
    unknownType: "Komunikat ma typ „[type]”; musi to być confirm lub error.",
    noCoordinates: "Atrybut [attribute] elementu [element] nie zawiera trzech liczb: „[text]”.",
    coordinatesNotFinite:
        "Atrybut [attribute] elementu [element] nie zawiera liczb skończonych: „[text]”.",
};
