// The texts of the page in French.
import type { texts } from "./english";

export const french: texts = {
    title: "Plateforme mesurée",
    language: "Langue",
    intro: "Déposez un fichier de mesure, un document de résultat ou les deux sur cette page, ou choisissez-les.",
    privacy: "Les fichiers restent dans cette page : rien n’est envoyé.",
    files: "Fichiers",
    firstSet: "Mesure",
    secondSet: "Comparaison",
    chooseFirst: "Choisir des fichiers",
    chooseSecond: "Choisir des fichiers à comparer",
    emptyFirst: "Aucun fichier",
    emptySecond: "Une deuxième mesure de la même plateforme peut être superposée à la première",
    measuringFile: "Fichier de mesure",
    resultDocument: "Document de résultat",
    remove: "Retirer [name]",
    removeAll: "Tout retirer",
    platform: "Plateforme",
    measuredAt: "Mesurée",
    noDate: "pas de date lisible",
    readingFile: "Lecture de [name] …",
    fileRead: "[name] a été lu.",
    messageOfTool: "Message du programme",
    dismiss: "Fermer",

    view: "Vue",
    viewDescription:
        "Image 3D de la plateforme. Les flèches la tournent, avec Maj elles la déplacent, plus et moins changent l’échelle, 0 montre tout.",
    oblique: "Oblique",
    above: "De dessus",
    front: "De face",
    right: "De droite",
    zoomIn: "Agrandir",
    zoomOut: "Réduire",
    exaggeration: "Hauteurs amplifiées",
    exaggerated: "Hauteurs amplifiées [factor]×",
    factorShort: "[factor]×",
    trueHeights: "Hauteurs à l’échelle (1×)",
    noWebgl:
        "Ce navigateur ne peut pas dessiner en 3D ici (il n’offre pas WebGL). Les nombres sont complets.",
    legend: "Légende",
    legendFirst: "Cylindres et plan, mesure",
    legendSecond: "Cylindres et plan, comparaison",
    legendPlatform: "Axes X Y Z de la plateforme (cs)",
    legendMachine: "Axes x y z de la machine (ncs)",
    legendLevel: "Horizontale à la hauteur moyenne",
    machineAway:
        "L’origine de la machine est à [distance] mm : ses axes sont dessinés à côté de la plateforme et ne montrent que des directions.",
    assumedSize:
        "Pas de fichier de mesure : le plan est celui de cs, dessiné sur [size] mm de large.",
    savePng: "Enregistrer l’image (PNG)",
    saveSvg: "Enregistrer l’image (SVG)",
    saveCsv: "Enregistrer les nombres (CSV)",
    print: "Imprimer",

    numbers: "Nombres",
    needsResult:
        "L’inclinaison, la rotation, l’origine et les systèmes de coordonnées s’affichent avec le document de résultat.",
    needsMeasuring: "Les cylindres, les écarts et les côtés s’affichent avec le fichier de mesure.",
    position: "Position de la plateforme",
    cylinders: "Cylindres",
    sides: "Côtés",
    frames: "Systèmes de coordonnées",
    group: "Groupe",
    quantity: "Grandeur",
    unit: "Unité",
    value: "Valeur",
    difference: "Différence",
    tiltX: "Inclinaison autour de X",
    riseX: "Inclinaison autour de X, sur [length] mm",
    tiltY: "Inclinaison autour de Y",
    riseY: "Inclinaison autour de Y, sur [length] mm",
    higher: "plus haut aux cylindres [names]",
    level: "horizontal",
    rotationZ: "Rotation autour de Z",
    origin: "Origine",
    heightOffset: "Décalage en hauteur dans le résultat",
    normalsApart: "Angle entre les axes Z",
    originsApart: "Distance entre les origines",
    cylinder: "Cylindre",
    cylinderX: "X",
    cylinderY: "Y",
    cylinderZ: "Z",
    deviation: "Écart au plan",
    fromRectangle: "Distance au rectangle",
    cornerAngle: "Angle au-delà de 90°",
    side: "Côté",
    diagonal: "Diagonale",
    diagonalDifference: "Différence des diagonales",
    cs: "cs, la plateforme dans la machine",
    ncs: "ncs, la machine dans la plateforme",

    formulas: "Comment les nombres sont obtenus",
    formulaSource:
        "cs et ncs figurent dans le document de résultat et sont montrés tels quels. Tout le reste en est déduit, ainsi que des points mesurés P1 à P4 :",
    formulaTilt: "Inclinaison, selon la règle de la main droite",
    formulaRise:
        "Inclinaison en mm ; LX et LY sont les longueurs moyennes des côtés le long de X et de Y",
    formulaRotation: "Rotation autour de Z",
    formulaOrigin: "Origine",
    formulaOffset: "Décalage en hauteur",
    formulaPlane:
        "Écart : distance au plan passant par la moyenne C dont la somme des carrés est minimale ; n est sa normale vers le haut",
    formulaRectangle:
        "Distance au rectangle R1 à R4 dans ce plan dont la somme des carrés est minimale ; Q sont les points projetés sur le plan",
    formulaAngle: "Angle à un coin dont les voisins sont A et B",
    formulaSides: "Côtés et diagonales",
    formulaDifference: "Différence : seconde valeur moins première ; entre axes et entre origines",
    formulaView:
        "Hauteurs dans l’image pour une amplification k, depuis la hauteur moyenne de la première mesure ; les axes sont dessinés dans le plan amplifié et perpendiculairement à lui",
    licences: "Licences de ce que cette page contient",

    otherPlatform:
        "Le fichier contient la plateforme « [platform] », son nom indique « [expected] ». Le programme le refuse pour « [expected] ».",
    pointTwice: "[name] y figure plusieurs fois ; le dernier compte.",
    axesNotSquare:
        "Les axes de [element] ne sont pas de longueur 1, à angle droit et orientés à droite. Le programme ne les a pas écrits ainsi.",
    notInverse: "ncs n’est pas l’inverse de cs. Le programme ne les a pas écrits ainsi.",
    noPlane:
        "Les quatre points sont sur une droite ou au même endroit : il n’y a ni plan ni rectangle.",
    pointsDown:
        "L’axe Z pointe vers le bas : les cylindres semblent numérotés dans le sens antihoraire.",
    otherMeasurement:
        "L’origine du résultat est à [distance] mm du milieu des cylindres : résultat et fichier de mesure semblent provenir de mesures différentes.",
    differentPlatforms:
        "Deux plateformes différentes sont comparées : « [first] » et « [second] ».",

    problemIn: "[name] : [problem]",
    problemAt: "Ligne [line], colonne [column] : [problem]",
    cannotRead: "Le fichier ne peut pas être ouvert en lecture.",
    fileTooLarge:
        "Le fichier dépasse [size] Mo. Les fichiers de mesure et les documents de résultat ont quelques kilooctets.",
    fileEmpty: "Le fichier est vide.",
    noText: "Le fichier ne contient qu’une marque d’ordre des octets.",
    noTextFile: "Ce n’est pas un fichier texte : l’octet [position] est nul.",
    utf16BigEndian:
        "Le texte est en UTF-16 avec l’octet de poids fort en premier, ce que le programme ne lit pas. Enregistrez-le en UTF-8.",
    utf16WithoutMark:
        "Le texte est en UTF-16 sans la marque FF FE, ce que le programme ne lit pas. Enregistrez-le en UTF-8.",
    declaredUtf16:
        "Le fichier déclare UTF-16 mais il est écrit en octets simples. Le programme n’y trouve rien.",
    declarationTooLong: "L’encodage déclaré est trop long. Le programme s’arrête anormalement.",
    noElement: "Ce n’est pas du XML : il ne contient aucun élément.",
    neitherFile:
        "Ce n’est ni un fichier de mesure ni un document de résultat : l’élément racine est « [element] » et il ne contient aucun point de mesure.",
    tagCutOff: "Le fichier est tronqué : une balise commence ici et rien ne suit.",
    slashInTag: "Dans une balise, « / » doit être suivi de « > ».",
    attributeWithoutValue:
        "Un attribut n’a pas de valeur, ou le fichier est tronqué dans une balise.",
    valueWithoutQuote: "La valeur d’un attribut doit commencer par un guillemet droit.",
    valueCutOff:
        "La valeur qui commence ici n’a pas de guillemet fermant, ou le fichier est tronqué.",
    elementCutOff:
        "L’élément « [element] » qui commence ici n’est pas fermé : le fichier est tronqué.",
    otherClosingTag: "Ce n’est pas la balise fermante de « [element] » attendue ici.",
    tooManyEntities:
        "Le texte est échappé tant de fois qu’il ne peut être résolu en un temps utile.",
    endlessReference:
        "Une référence « &#x » sans un à trois chiffres hexadécimaux et « ; ». Le programme n’en revient pas.",
    noPlatformName:
        "L’élément racine n’a pas de PlatformName : le programme ne sait pas à qui sont ces données.",
    noNumber: "La coordonnée [axis] n’est pas un nombre : « [text] ».",
    notFinite: "La coordonnée [axis] n’est pas un nombre fini : « [text] ».",
    axesMissing: "Il manque l’axe [axes] au point de mesure « [name] ».",
    unknownPoint:
        "Un point de mesure porte le nom inconnu « [name] » ; il doit être cylinder1, cylinder2, cylinder3 ou cylinder4.",
    pointsMissing:
        "Les quatre cylindres ne sont pas tous là, ou le fichier est tronqué. Il manque : [names].",
    elementMissing: "Il manque l’élément « [element] » au document de résultat.",
    unknownType: "Le message est de type « [type] » ; il doit être confirm ou error.",
    noCoordinates:
        "L’attribut [attribute] de [element] ne contient pas trois nombres : « [text] ».",
    coordinatesNotFinite:
        "L’attribut [attribute] de [element] ne contient pas de nombres finis : « [text] ».",
};
