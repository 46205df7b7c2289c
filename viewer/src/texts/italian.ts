// The texts of the page in Italian.
import type { texts } from "./english";

export const italian: texts = {
    title: "Piattaforma misurata",
    language: "Lingua",
    intro: "Trascinare su questa pagina un file di misura, un documento dei risultati o entrambi, oppure sceglierli.",
    privacy: "I file restano in questa pagina: non viene inviato nulla.",
    files: "File",
    firstSet: "Misura",
    secondSet: "Confronto",
    chooseFirst: "Scegli file",
    chooseSecond: "Scegli file da confrontare",
    emptyFirst: "Nessun file",
    emptySecond: "Una seconda misura della stessa piattaforma può essere sovrapposta alla prima",
    measuringFile: "File di misura",
    resultDocument: "Documento dei risultati",
    remove: "Rimuovi [name]",
    removeAll: "Rimuovi tutto",
    platform: "Piattaforma",
    measuredAt: "Misurata",
    noDate: "nessuna data leggibile",
    readingFile: "Lettura di [name] …",
    fileRead: "[name] è stato letto.",
    messageOfTool: "Messaggio del programma",
    dismiss: "Chiudi",

    view: "Vista",
    viewDescription:
        "Immagine 3D della piattaforma. I tasti freccia la ruotano, con Maiusc la spostano, più e meno cambiano la scala, 0 mostra tutto.",
    oblique: "Obliqua",
    above: "Dall’alto",
    front: "Di fronte",
    right: "Da destra",
    zoomIn: "Ingrandisci",
    zoomOut: "Riduci",
    exaggeration: "Altezze amplificate",
    exaggerated: "Altezze amplificate [factor]×",
    factorShort: "[factor]×",
    trueHeights: "Altezze in scala (1×)",
    noWebgl:
        "Questo browser qui non può disegnare in 3D (non offre WebGL). I numeri sono completi.",
    legend: "Legenda",
    legendFirst: "Cilindri e piano, misura",
    legendSecond: "Cilindri e piano, confronto",
    legendPlatform: "Assi X Y Z della piattaforma (cs)",
    legendMachine: "Assi x y z della macchina (ncs)",
    legendLevel: "Orizzontale all’altezza media",
    machineAway:
        "L’origine della macchina dista [distance] mm: i suoi assi sono disegnati accanto alla piattaforma e mostrano solo le direzioni.",
    assumedSize: "Nessun file di misura: il piano è quello di cs, disegnato largo [size] mm.",
    savePng: "Salva immagine (PNG)",
    saveSvg: "Salva immagine (SVG)",
    saveCsv: "Salva numeri (CSV)",
    print: "Stampa",

    numbers: "Numeri",
    needsResult:
        "Inclinazione, rotazione, origine e sistemi di coordinate compaiono con il documento dei risultati.",
    needsMeasuring: "Cilindri, scostamenti e lati compaiono con il file di misura.",
    position: "Posizione della piattaforma",
    cylinders: "Cilindri",
    sides: "Lati",
    frames: "Sistemi di coordinate",
    group: "Gruppo",
    quantity: "Grandezza",
    unit: "Unità",
    value: "Valore",
    difference: "Differenza",
    tiltX: "Inclinazione attorno a X",
    riseX: "Inclinazione attorno a X, su [length] mm",
    tiltY: "Inclinazione attorno a Y",
    riseY: "Inclinazione attorno a Y, su [length] mm",
    higher: "più alta ai cilindri [names]",
    level: "orizzontale",
    rotationZ: "Rotazione attorno a Z",
    origin: "Origine",
    heightOffset: "Offset di altezza nel risultato",
    normalsApart: "Angolo tra gli assi Z",
    originsApart: "Distanza tra le origini",
    cylinder: "Cilindro",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Scostamento dal piano",
    fromRectangle: "Distanza dal rettangolo",
    cornerAngle: "Angolo oltre 90°",
    side: "Lato",
    diagonal: "Diagonale",
    diagonalDifference: "Differenza delle diagonali",
    cs: "cs, la piattaforma nella macchina",
    ncs: "ncs, la macchina nella piattaforma",

    formulas: "Come si ottengono i numeri",
    formulaSource:
        "cs e ncs si trovano nel documento dei risultati e sono mostrati così come sono. Tutto il resto è ricavato da essi e dai punti misurati da P1 a P4:",
    formulaTilt: "Inclinazione, secondo la regola della mano destra",
    formulaRise: "Inclinazione in mm; LX e LY sono le lunghezze medie dei lati lungo X e Y",
    formulaRotation: "Rotazione attorno a Z",
    formulaOrigin: "Origine",
    formulaOffset: "Offset di altezza",
    formulaPlane:
        "Scostamento: distanza dal piano per la media C con la minima somma dei quadrati; n è la sua normale verso l’alto",
    formulaRectangle:
        "Distanza dal rettangolo da R1 a R4 in quel piano con la minima somma dei quadrati; Q sono i punti proiettati sul piano",
    formulaAngle: "Angolo a un vertice con i vicini A e B",
    formulaSides: "Lati e diagonali",
    formulaDifference: "Differenza: secondo valore meno primo; tra assi e tra origini",
    formulaView:
        "Altezze nell’immagine con amplificazione k, dall’altezza media della prima misura; gli assi sono disegnati nel piano amplificato e perpendicolari a esso",
    licences: "Licenze di ciò che questa pagina contiene",

    otherPlatform:
        "Il file contiene la piattaforma «[platform]», il suo nome indica «[expected]». Il programma lo rifiuta per «[expected]».",
    pointTwice: "[name] compare più volte; vale l’ultimo.",
    axesNotSquare:
        "Gli assi di [element] non sono di lunghezza 1, ad angolo retto e destrorsi. Il programma non li ha scritti così.",
    notInverse: "ncs non è l’inverso di cs. Il programma non li ha scritti così.",
    noPlane:
        "I quattro punti sono su una retta o nello stesso posto: non c’è né piano né rettangolo.",
    pointsDown: "L’asse Z punta verso il basso: i cilindri sembrano numerati in senso antiorario.",
    otherMeasurement:
        "L’origine del risultato dista [distance] mm dal centro dei cilindri: risultato e file di misura sembrano di misure diverse.",
    differentPlatforms: "Si confrontano due piattaforme diverse: «[first]» e «[second]».",

    problemIn: "[name]: [problem]",
    problemAt: "Riga [line], colonna [column]: [problem]",
    cannotRead: "Impossibile aprire il file in lettura.",
    fileTooLarge:
        "Il file supera [size] MB. I file di misura e i documenti dei risultati hanno pochi kilobyte.",
    fileEmpty: "Il file è vuoto.",
    noText: "Il file contiene soltanto un indicatore dell’ordine dei byte.",
    noTextFile: "Non è un file di testo: il byte [position] è zero.",
    utf16BigEndian:
        "Il testo è in UTF-16 con il byte alto per primo, che il programma non legge. Salvarlo come UTF-8.",
    utf16WithoutMark:
        "Il testo è in UTF-16 senza l’indicatore FF FE, che il programma non legge. Salvarlo come UTF-8.",
    declaredUtf16:
        "Il file dichiara UTF-16 ma è scritto a singoli byte. Il programma non vi trova nulla.",
    declarationTooLong:
        "La codifica dichiarata è troppo lunga. Il programma termina in modo anomalo.",
    noElement: "Non è XML: non contiene alcun elemento.",
    neitherFile:
        "Non è né un file di misura né un documento dei risultati: l’elemento radice è «[element]» e non contiene alcun punto di misura.",
    tagCutOff: "Il file è troncato: qui inizia un tag e non segue nulla.",
    slashInTag: "In un tag, «/» deve essere seguito da «>».",
    attributeWithoutValue: "Un attributo non ha valore, oppure il file è troncato dentro un tag.",
    valueWithoutQuote: "Il valore di un attributo deve iniziare con le virgolette.",
    valueCutOff:
        "Il valore che inizia qui non ha virgolette di chiusura, oppure il file è troncato.",
    elementCutOff: "L’elemento «[element]» che inizia qui non è chiuso: il file è troncato.",
    otherClosingTag: "Non è il tag di chiusura di «[element]» atteso qui.",
    tooManyEntities:
        "Il testo contiene così tante sequenze di escape che non può essere risolto in tempo utile.",
    endlessReference:
        "Un riferimento «&#x» senza una, due o tre cifre esadecimali e «;». Il programma non ne esce più.",
    noPlatformName:
        "L’elemento radice non ha PlatformName: il programma non sa di chi siano i dati.",
    noNumber: "La coordinata [axis] non è un numero: «[text]».",
    notFinite: "La coordinata [axis] non è un numero finito: «[text]».",
    axesMissing: "Al punto di misura «[name]» manca l’asse [axes].",
    unknownPoint:
        "Un punto di misura ha il nome sconosciuto «[name]»; deve essere cylinder1, cylinder2, cylinder3 o cylinder4.",
    pointsMissing:
        "Non ci sono tutti e quattro i cilindri, oppure il file è troncato. Mancano: [names].",
    elementMissing: "Al documento dei risultati manca l’elemento «[element]».",
    unknownType: "Il messaggio è di tipo «[type]»; deve essere confirm o error.",
    noCoordinates: "L’attributo [attribute] di [element] non contiene tre numeri: «[text]».",
    coordinatesNotFinite:
        "L’attributo [attribute] di [element] non contiene numeri finiti: «[text]».",
};
