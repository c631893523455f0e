' The simulated host driven from VBScript, as a script written for the host drives it: created by
' ProgID, walked and changed by name. Prints each failed check and ends with their number.
Option Explicit

Dim failures : failures = 0

Sub Check(condition, what)
    If Not condition Then
        WScript.Echo "FAILED: " & what
        failures = failures + 1
    End If
End Sub

Sub CheckEqual(actual, expected, what)
    Check actual = expected, what & ": expected <" & expected & ">, got <" & actual & ">"
End Sub

' Whether the host's state, as JSON, holds `text`.
Function StateHas(control, text)
    StateHas = InStr(control.State, text) > 0
End Function

Dim control : Set control = CreateObject("Zorb.SimulatedHostControl")
Dim app : Set app = control.Application

' Menu groups: walk them, load the MX menus, find a group by name (a literal 0 arrives as VT_I2).
Dim groups : Set groups = app.MenuGroups
CheckEqual groups.Count, 1, "menu groups of the default host"
Dim zorb : Set zorb = groups.Item(0)
CheckEqual zorb.Name, "ZORB", "the host's own group"
Dim mx : Set mx = groups.LoadMenuFile("C:\Program Files\MX\Support\MX")
CheckEqual mx.Name, "MX", "the loaded group"
CheckEqual groups.Count, 2, "menu groups after the load"
CheckEqual groups("mx").Name, "MX", "a group found by name, Item being the default member"
' An index written after a property goes on to the collection it gives.
CheckEqual app.MenuGroups("MX").Name, "MX", "a group named in one line"
CheckEqual app.MenuGroups(0).Name, "ZORB", "a group by position in one line"
CheckEqual app.MenuGroups("MX").Toolbars("MX Main").TagString, "TB_MX_MAIN", "a toolbar named in one line"
CheckEqual app.Documents(0).FullFileName, app.ActiveDocument.FullFileName, "a document by position in one line"

' Every collection walks with For Each, in the order of its positions.
Dim g, walked : walked = ""
For Each g In groups
    walked = walked & g.Name & ";"
Next
CheckEqual walked, "ZORB;MX;", "the menu groups walked with For Each"
Dim m, menuCount : menuCount = 0
For Each m In zorb.Menus
    If m.Name = zorb.Menus.Item(menuCount).Name Then menuCount = menuCount + 1
Next
CheckEqual menuCount, zorb.Menus.Count, "the group's menus walked in order"
Dim onBar : onBar = 0
For Each m In app.MenuBar
    If m.OnMenuBar Then onBar = onBar + 1
Next
CheckEqual onBar, app.MenuBar.Count, "the menu bar walked"
Dim t, b, buttons : buttons = 0
For Each t In mx.Toolbars
    For Each b In t
        buttons = buttons + 1
    Next
Next
Check buttons > 0, "the buttons of the MX toolbars walked"
Set g = Nothing : Set m = Nothing : Set t = Nothing : Set b = Nothing

' Menus and items: every menu of the group, every item of the first.
Dim menus : Set menus = zorb.Menus
Check menus.Count > 6, "the host's menus, the cursor menu among them"
Dim labels : labels = 0
Dim file : Set file = menus.Item(0)
Dim entry
For Each entry In file
    If entry.Type = 0 Then labels = labels + 1
Next
Set entry = Nothing
Check labels > 0, "the File menu has commands"
CheckEqual file.Item(0).Macro <> "", True, "a command has its macro"

' A menu of our own, filled and put on the menu bar, then changed and taken off again.
Dim ours : Set ours = menus.AddMenu("Steel")
CheckEqual ours.Name, "Steel", "the added menu"
Dim item : Set item = ours.AddMenuItem(0, "Beam", "^C^C_MXBEAM ")
ours.AddSeparator 1
Dim sub1 : Set sub1 = ours.AddSubMenu(2, "Connections")
sub1.AddMenuItem 0, "Plate", "^C^C_MXPLATE "
CheckEqual ours.Count, 3, "items of the added menu"
CheckEqual ours.Item(1).Type, 1, "a separator's type"
CheckEqual ours.Item(2).Type, 2, "a submenu's type"
CheckEqual ours.Item(2).SubMenu.Item(0).Label, "Plate", "the submenu's item"
item.Label = "Beams"
CheckEqual item.Label, "Beams", "a relabelled item"
item.Enabled = False
CheckEqual item.Enabled, False, "a disabled item"
ours.Name = "Steelwork"
CheckEqual ours.TagString, "", "a menu added by a script has no tag"
Dim barCount : barCount = app.MenuBar.Count
ours.InsertInMenuBar barCount
CheckEqual ours.OnMenuBar, True, "our menu on the menu bar"
CheckEqual app.MenuBar.Item(barCount).Name, "Steelwork", "the menu bar's last menu"
Check StateHas(control, """Steelwork"""), "the state shows the renamed menu"
ours.RemoveFromMenuBar
CheckEqual app.MenuBar.Count, barCount, "the menu bar after the removal"
ours.Item(1).Delete
CheckEqual ours.Count, 2, "items after a deletion"

' Toolbars: visibility and placement read and set, a button added, tagged and deleted.
Dim toolbars : Set toolbars = zorb.Toolbars
Check toolbars.Count > 0, "the host's toolbars"
Dim bar : Set bar = toolbars.Item(0)
Check bar.Name <> "", "a toolbar's name"
bar.Visible = False
CheckEqual bar.Visible, False, "a hidden toolbar"
bar.Float 100, 200, 2
CheckEqual bar.DockStatus, 4, "a floating toolbar's dock status"
CheckEqual bar.Top, 100, "a floating toolbar's top"
CheckEqual bar.Left, 200, "a floating toolbar's left"
CheckEqual bar.FloatingRows, 2, "a floating toolbar's rows"
bar.Dock 1
CheckEqual bar.DockStatus, 1, "a docked toolbar's side"
CheckEqual bar.TagString, bar.TagString, "a toolbar's tag reads"
Dim before : before = bar.Count
Dim button : Set button = bar.AddButton(before, "MXBEAM", "Beam", "^C^C_MXBEAM ")
button.TagString = "ID_MXBEAM"
CheckEqual button.TagString, "ID_MXBEAM", "a tagged button"
CheckEqual button.Name, "MXBEAM", "the button's name"
CheckEqual button.Index, before, "the button's position"
button.SetBitmaps "MXBEAM16", "MXBEAM32"
button.AttachToolbarToFlyout "MX", mx.Toolbars.Item(0).Name
CheckEqual bar.Item(before).TagString, "ID_MXBEAM", "the button found again"
button.Delete
CheckEqual bar.Count, before, "buttons after the deletion"

' A host failure reaches the script as an error with the host's status and description.
On Error Resume Next
Dim missing : Set missing = groups.Item("NoSuchGroup")
CheckEqual Hex(Err.Number), "8002000B", "the status of a missing group"
CheckEqual Err.Description, "no menu group named 'NoSuchGroup'", "the host's description"
Err.Clear
Set missing = app.MenuGroups("NoSuchGroup")
CheckEqual Hex(Err.Number), "8002000B", "the status of a missing group named in one line"
CheckEqual Err.Description, "no menu group named 'NoSuchGroup'", "the inner call's description"
Err.Clear
' A fault armed through the control is what the script meets.
control.ArmFault "{""kind"": ""failCall"", ""method"": ""HostMenuGroups.get_Count"", ""status"": ""E_ACCESSDENIED""}"
Dim count : count = groups.Count
CheckEqual Hex(Err.Number), "80070005", "the status of the armed fault"
Err.Clear
On Error GoTo 0
control.ClearFaults
CheckEqual groups.Count, 2, "the count once the fault is cleared"

' The journal shows the script's calls as late-bound, with what arrived.
control.ClearJournal
Set item = groups.Item(0)
Dim journal : journal = control.Journal
Check InStr(journal, """HostMenuGroups.Item""") > 0, "the journal has the call"
Check InStr(journal, """lateBound""") > 0 And InStr(journal, """VT_I2""") > 0, "the call is marked late-bound"

' Points and lists as a script builds them: arrays of variants.
app.ZoomWindow Array(0, 0), Array(420.5, 297)
Check StateHas(control, "420.5"), "the zoom window in the state"
Dim layout : Set layout = app.ActiveDocument.ActiveLayout
layout.SetWindowToPlot Array(10, 20), Array(30, 40)
layout.PlotType = 4
CheckEqual layout.PlotType, 4, "the layout plots its window"
Dim plot : Set plot = app.ActiveDocument.Plot
plot.SetLayoutsToPlot Array(layout.Name)
CheckEqual plot.PlotToDevice("DWG To PDF.pc3"), True, "the plot went to the device"
Check StateHas(control, "DWG To PDF.pc3"), "the plot job in the state"
Set plot = Nothing : Set layout = Nothing

' The MX group unloaded; its objects go with it.
mx.Unload
CheckEqual groups.Count, 1, "menu groups after the unload"

Set item = Nothing : Set sub1 = Nothing : Set ours = Nothing : Set file = Nothing : Set menus = Nothing
Set button = Nothing : Set bar = Nothing : Set toolbars = Nothing : Set mx = Nothing : Set zorb = Nothing
Set missing = Nothing : Set groups = Nothing : Set app = Nothing
CheckEqual control.ReferencesHeld, 0, "references the script still holds"

WScript.Echo failures & " failed"
WScript.Quit failures
