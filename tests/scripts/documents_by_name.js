// The simulated host driven from JScript: documents opened, activated and closed, plot settings
// and preferences written, the state read back as JSON. Prints each failed check and ends with
// their number.
var failures = 0;

function check(condition, what) {
    if (!condition) {
        WScript.Echo("FAILED: " + what);
        failures++;
    }
}

function checkEqual(actual, expected, what) {
    check(actual === expected, what + ": expected <" + expected + ">, got <" + actual + ">");
}

// The host's state as an object (this JScript has no JSON object; the state is the host's own).
function stateOf(control) {
    return eval("(" + control.State + ")");
}

var control = new ActiveXObject("Zorb.SimulatedHostControl");
var app = control.Application;

// Documents: open two more, activate one by position, close one; read-only and password are left
// out, as most callers do.
var documents = app.Documents;
checkEqual(documents.Count, 1, "documents of the default host");
var first = documents.Item(0);
var opened = documents.Open("C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg");
checkEqual(opened.FullFileName, "C:\\Projects\\Warehouse 12\\Drawings\\GA-002.dwg", "the opened drawing");
documents.Open("C:\\Projects\\Warehouse 12\\Drawings\\Shop\\B-101.dwg");
checkEqual(documents.Count, 3, "documents after two opens");
first.Activate();
checkEqual(app.ActiveDocument.FullFileName, first.FullFileName, "the activated drawing");
opened.Close(false);
checkEqual(documents.Count, 2, "documents after a close");
var state = stateOf(control);
checkEqual(state.documents.length, 2, "open documents in the state");
// The documents walked as JScript walks a collection.
var names = [];
for (var walk = new Enumerator(documents); !walk.atEnd(); walk.moveNext())
    names.push(walk.item().FullFileName);
checkEqual(names.join(";"), first.FullFileName + ";C:\\Projects\\Warehouse 12\\Drawings\\Shop\\B-101.dwg",
           "the open documents, walked in order");
walk = null;
// An index written after a property goes on to the collection it gives.
checkEqual(app.Documents(1).FullFileName, "C:\\Projects\\Warehouse 12\\Drawings\\Shop\\B-101.dwg",
           "a document by position in one call");

// Opening a drawing the host cannot find fails with the host's status and description.
try {
    documents.Open("C:\\Nowhere\\missing.dwg");
    check(false, "opening a missing drawing succeeded");
} catch (e) {
    check(e.number !== 0, "a failed open raises an error");
    check(e.description.length > 0, "the error carries the host's description");
}

// Plotting: copies, quiet errors and a batch, then a plot to the layout's own device.
var layout = first.ActiveLayout;
checkEqual(layout.Name, "Layout1", "the active layout");
layout.PlotType = 1;
checkEqual(layout.PlotType, 1, "the layout plots its extents");
var plot = first.Plot;
plot.NumberOfCopies = 2;
plot.QuietErrorMode = true;
plot.StartBatchMode(1);
checkEqual(plot.PlotToDevice(), true, "the plot went to the layout's device");
state = stateOf(control);
checkEqual(state.plotJobs.length, 1, "plot jobs in the state");
checkEqual(state.plotJobs[0].numberOfCopies, 2, "copies of the plot job");

// Preferences: every folder setting written and read back.
var files = app.Preferences.Files;
files.SupportPath = "D:\\MX\\Support";
files.PrinterStyleSheetPath = "D:\\MX\\Plot Styles";
files.TemplateDrawingFolder = "D:\\MX\\Templates";
files.DrawingPath = "D:\\Drawings";
checkEqual(files.SupportPath, "D:\\MX\\Support", "the support path");
checkEqual(files.PrinterStyleSheetPath, "D:\\MX\\Plot Styles", "the plot style folder");
checkEqual(files.TemplateDrawingFolder, "D:\\MX\\Templates", "the template folder");
checkEqual(files.DrawingPath, "D:\\Drawings", "the drawing folder");
checkEqual(stateOf(control).preferences.supportPath, "D:\\MX\\Support", "the support path in the state");

// A fault armed through the control: the next plot is refused.
control.ArmFault('{"kind": "failCall", "method": "HostPlot.PlotToDevice", "status": "E_ABORT"}');
try {
    plot.PlotToDevice();
    check(false, "the armed fault did not fail the plot");
} catch (e) {
    checkEqual(e.number, 0x80004004 | 0, "the status of the armed fault");
}
control.ClearFaults();

// Starting afresh from a state file: the objects of the host before fail their calls.
var fso = new ActiveXObject("Scripting.FileSystemObject");
var path = fso.BuildPath(fso.GetSpecialFolder(2), fso.GetTempName());
var stream = fso.CreateTextFile(path, true);
stream.Write(control.State);
stream.Close();
var before = app.MenuGroups;
control.LoadState(path);
fso.DeleteFile(path);
try {
    before.Count;
    check(false, "an object of the replaced host answered");
} catch (e) {
    checkEqual(e.number, 0x8000FFFF | 0, "the status of an object of the replaced host");
}
before = null;
app = control.Application;
checkEqual(app.Documents.Count, 2, "documents of the host started from the saved state");
checkEqual(app.Preferences.Files.DrawingPath, "D:\\Drawings", "preferences of the saved state");

// Let go of everything: the host holds no reference of the script's.
first = opened = layout = plot = files = documents = app = null;
CollectGarbage();
checkEqual(control.ReferencesHeld, 0, "references the script still holds");

WScript.Echo(failures + " failed");
WScript.Quit(failures);
