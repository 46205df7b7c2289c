// Reads a result document for a batch file, which has no XML reader: prints a line for each thing
// in it, such as TYPE=confirm or NCS03=-11.09863537, the element in row 0 and column 3.
//
//     cscript //nologo readresult.js RESULT
var document = new ActiveXObject("MSXML2.DOMDocument.6.0");
document.async = false;
if (!document.load(WScript.Arguments.Item(0))) {
    WScript.Echo("TYPE=unreadable");
    WScript.Quit(1);
}
var message = document.documentElement.selectSingleNode("message");
WScript.Echo("TYPE=" + message.getAttribute("type"));
// Without what means something to a batch file, and on one line.
var text = message.getAttribute("title") + ": " + message.text;
WScript.Echo("MESSAGE=" + text.replace(/["%&<>|^\r\n]/g, " "));

// Axes and origin are the columns.
function printMatrix(name, frame) {
    var columns = ["x", "y", "z", "o"];
    for (var column = 0; column < 4; ++column) {
        var numbers = frame.getAttribute(columns[column]).split(",");
        for (var row = 0; row < 3; ++row) WScript.Echo(name + row + column + "=" + numbers[row]);
    }
}

var frames = ["ncs", "cs"];
for (var i = 0; i < 2; ++i) {
    var frame = document.documentElement.selectSingleNode(frames[i]);
    if (frame) printMatrix(frames[i].toUpperCase(), frame);
}
