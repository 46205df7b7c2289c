// The texts of the page in Spanish.
import type { texts } from "./english";

export const spanish: texts = {
    title: "Plataforma medida",
    language: "Idioma",
    intro: "Suelte en esta página un archivo de medición, un documento de resultado o ambos, o elíjalos.",
    privacy: "Los archivos se quedan en esta página: no se envía nada.",
    files: "Archivos",
    firstSet: "Medición",
    secondSet: "Comparación",
    chooseFirst: "Elegir archivos",
    chooseSecond: "Elegir archivos para comparar",
    emptyFirst: "Ningún archivo",
    emptySecond: "Una segunda medición de la misma plataforma puede superponerse a la primera",
    measuringFile: "Archivo de medición",
    resultDocument: "Documento de resultado",
    remove: "Quitar [name]",
    removeAll: "Quitar todo",
    platform: "Plataforma",
    measuredAt: "Medida",
    noDate: "sin fecha legible",
    readingFile: "Leyendo [name] …",
    fileRead: "Se ha leído [name].",
    messageOfTool: "Mensaje del programa",
    dismiss: "Cerrar",

    view: "Vista",
    viewDescription:
        "Imagen 3D de la plataforma. Las flechas la giran, con Mayús la desplazan, más y menos cambian la escala, 0 lo muestra todo.",
    oblique: "Oblicua",
    above: "Desde arriba",
    front: "De frente",
    right: "Desde la derecha",
    zoomIn: "Ampliar",
    zoomOut: "Reducir",
    exaggeration: "Alturas exageradas",
    exaggerated: "Alturas exageradas [factor]×",
    factorShort: "[factor]×",
    trueHeights: "Alturas a escala (1×)",
    noWebgl:
        "Este navegador no puede dibujar aquí en 3D (no ofrece WebGL). Los números están completos.",
    legend: "Leyenda",
    legendFirst: "Cilindros y plano, medición",
    legendSecond: "Cilindros y plano, comparación",
    legendPlatform: "Ejes X Y Z de la plataforma (cs)",
    legendMachine: "Ejes x y z de la máquina (ncs)",
    legendLevel: "Horizontal a la altura media",
    machineAway:
        "El origen de la máquina está a [distance] mm: sus ejes se dibujan junto a la plataforma y solo muestran direcciones.",
    assumedSize: "Sin archivo de medición: el plano es el de cs, dibujado con [size] mm de ancho.",
    savePng: "Guardar imagen (PNG)",
    saveSvg: "Guardar imagen (SVG)",
    saveCsv: "Guardar números (CSV)",
    print: "Imprimir",

    numbers: "Números",
    needsResult:
        "La inclinación, la rotación, el origen y los sistemas de coordenadas se muestran con el documento de resultado.",
    needsMeasuring:
        "Los cilindros, las desviaciones y los lados se muestran con el archivo de medición.",
    position: "Posición de la plataforma",
    cylinders: "Cilindros",
    sides: "Lados",
    frames: "Sistemas de coordenadas",
    group: "Grupo",
    quantity: "Magnitud",
    unit: "Unidad",
    value: "Valor",
    difference: "Diferencia",
    tiltX: "Inclinación alrededor de X",
    riseX: "Inclinación alrededor de X, en [length] mm",
    tiltY: "Inclinación alrededor de Y",
    riseY: "Inclinación alrededor de Y, en [length] mm",
    higher: "más alta en los cilindros [names]",
    level: "horizontal",
    rotationZ: "Rotación alrededor de Z",
    origin: "Origen",
    heightOffset: "Desplazamiento de altura en el resultado",
    normalsApart: "Ángulo entre los ejes Z",
    originsApart: "Distancia entre los orígenes",
    cylinder: "Cilindro",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Desviación del plano",
    fromRectangle: "Distancia al rectángulo",
    cornerAngle: "Ángulo sobre 90°",
    side: "Lado",
    diagonal: "Diagonal",
    diagonalDifference: "Diferencia de las diagonales",
    cs: "cs, la plataforma en la máquina",
    ncs: "ncs, la máquina en la plataforma",

    formulas: "Cómo se obtienen los números",
    formulaSource:
        "cs y ncs están en el documento de resultado y se muestran tal cual. Todo lo demás se deduce de ellos y de los puntos medidos P1 a P4:",
    formulaTilt: "Inclinación, según la regla de la mano derecha",
    formulaRise:
        "Inclinación en mm; LX y LY son las longitudes medias de los lados a lo largo de X e Y",
    formulaRotation: "Rotación alrededor de Z",
    formulaOrigin: "Origen",
    formulaOffset: "Desplazamiento de altura",
    formulaPlane:
        "Desviación: distancia al plano que pasa por la media C con la menor suma de cuadrados; n es su normal hacia arriba",
    formulaRectangle:
        "Distancia al rectángulo R1 a R4 en ese plano con la menor suma de cuadrados; Q son los puntos proyectados sobre el plano",
    formulaAngle: "Ángulo en una esquina con los vecinos A y B",
    formulaSides: "Lados y diagonales",
    formulaDifference: "Diferencia: segundo valor menos primero; entre ejes y entre orígenes",
    formulaView:
        "Alturas en la imagen con exageración k, desde la altura media de la primera medición; los ejes se dibujan en el plano exagerado y perpendiculares a él",
    licences: "Licencias de lo que contiene esta página",

    otherPlatform:
        "El archivo contiene la plataforma «[platform]», su nombre indica «[expected]». El programa lo rechaza para «[expected]».",
    pointTwice: "[name] aparece varias veces; cuenta el último.",
    axesNotSquare:
        "Los ejes de [element] no tienen longitud 1, no son perpendiculares o no son dextrógiros. El programa no los ha escrito así.",
    notInverse: "ncs no es la inversa de cs. El programa no los ha escrito así.",
    noPlane:
        "Los cuatro puntos están en una recta o en un mismo lugar: no hay plano ni rectángulo.",
    pointsDown:
        "El eje Z apunta hacia abajo: los cilindros parecen numerados en sentido antihorario.",
    otherMeasurement:
        "El origen del resultado está a [distance] mm del centro de los cilindros: el resultado y el archivo de medición parecen de mediciones distintas.",
    differentPlatforms: "Se comparan dos plataformas distintas: «[first]» y «[second]».",

    problemIn: "[name]: [problem]",
    problemAt: "Línea [line], columna [column]: [problem]",
    cannotRead: "No se puede abrir el archivo para leerlo.",
    fileTooLarge:
        "El archivo supera [size] MB. Los archivos de medición y los documentos de resultado tienen pocos kilobytes.",
    fileEmpty: "El archivo está vacío.",
    noText: "El archivo solo contiene una marca de orden de bytes.",
    noTextFile: "No es un archivo de texto: el byte [position] es cero.",
    utf16BigEndian:
        "El texto está en UTF-16 con el byte alto primero, que el programa no lee. Guárdelo como UTF-8.",
    utf16WithoutMark:
        "El texto está en UTF-16 sin la marca FF FE, que el programa no lee. Guárdelo como UTF-8.",
    declaredUtf16:
        "El archivo declara UTF-16, pero está escrito en bytes sueltos. El programa no encuentra nada en él.",
    declarationTooLong:
        "La codificación declarada es demasiado larga. El programa termina de forma anómala.",
    noElement: "No es XML: no contiene ningún elemento.",
    neitherFile:
        "No es un archivo de medición ni un documento de resultado: el elemento raíz es «[element]» y no contiene ningún punto de medición.",
    tagCutOff: "El archivo está cortado: aquí empieza una etiqueta y no sigue nada.",
    slashInTag: "En una etiqueta, a «/» debe seguir «>».",
    attributeWithoutValue:
        "Un atributo no tiene valor, o el archivo está cortado dentro de una etiqueta.",
    valueWithoutQuote: "El valor de un atributo debe empezar con comillas.",
    valueCutOff:
        "El valor que empieza aquí no tiene comillas de cierre, o el archivo está cortado.",
    elementCutOff:
        "El elemento «[element]» que empieza aquí no está cerrado: el archivo está cortado.",
    otherClosingTag: "No es la etiqueta de cierre de «[element]» que debe estar aquí.",
    tooManyEntities:
        "El texto está escapado tantas veces que no puede resolverse en un tiempo útil.",
    endlessReference:
        "Una referencia «&#x» sin una a tres cifras hexadecimales y «;». El programa no vuelve de ella.",
    noPlatformName:
        "El elemento raíz no tiene PlatformName: el programa no sabe de quién son los datos.",
    noNumber: "La coordenada [axis] no es un número: «[text]».",
    notFinite: "La coordenada [axis] no es un número finito: «[text]».",
    axesMissing: "Al punto de medición «[name]» le falta el eje [axes].",
    unknownPoint:
        "Un punto de medición tiene el nombre desconocido «[name]»; debe ser cylinder1, cylinder2, cylinder3 o cylinder4.",
    pointsMissing: "No están los cuatro cilindros, o el archivo está cortado. Faltan: [names].",
    elementMissing: "Al documento de resultado le falta el elemento «[element]».",
    unknownType: "El mensaje es de tipo «[type]»; debe ser confirm o error.",
    noCoordinates: "El atributo [attribute] de [element] no contiene tres números: «[text]».",
    coordinatesNotFinite:
        "El atributo [attribute] de [element] no contiene números finitos: «[text]».",
};
