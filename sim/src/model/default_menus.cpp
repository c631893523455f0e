// The menu groups of the default host: the host's own group, and the MX product's menu files
// as its installation puts them into the support folder.
#include "model/default_menus.h"

#include "model/builders.h"

namespace sim::detail {
namespace {

std::shared_ptr<PopupMenu> hostFileMenu()
{
    return menu(L"&File", L"ID_MnFile",
                {command(L"&New...", L"^C^C_new", L"ID_New"), command(L"&Open...", L"^C^C_open", L"ID_Open"),
                 command(L"&Close", L"^C^C_close", L"ID_Close"), separator(),
                 command(L"&Save", L"^C^C_qsave", L"ID_Save"),
                 command(L"Save &As...", L"^C^C_saveas", L"ID_SaveAs"), separator(),
                 command(L"Page Set&up...", L"^C^C_pagesetup", L"ID_PageSetup"),
                 command(L"&Plot...", L"^C^C_plot", L"ID_Plot"), separator(),
                 command(L"E&xit", L"^C^C_quit", L"ID_Exit")});
}

std::shared_ptr<PopupMenu> hostEditMenu()
{
    return menu(L"&Edit", L"ID_MnEdit",
                {command(L"&Undo", L"^C^C_u", L"ID_Undo"), command(L"&Redo", L"^C^C_redo", L"ID_Redo"),
                 separator(), command(L"Cu&t", L"^C^C_cutclip", L"ID_Cut"),
                 command(L"&Copy", L"^C^C_copyclip", L"ID_Copy"),
                 command(L"&Paste", L"^C^C_pasteclip", L"ID_Paste"), separator(),
                 command(L"Select &All", L"^C^C_ai_selall", L"ID_SelectAll")});
}

std::shared_ptr<PopupMenu> hostViewMenu()
{
    return menu(L"&View", L"ID_MnView",
                {command(L"&Redraw", L"'_redraw", L"ID_Redraw"),
                 command(L"Re&generate", L"^C^C_regen", L"ID_Regen"), separator(),
                 submenu(L"&Zoom", {command(L"&Window", L"'_zoom _w", L"ID_ZoomWindow"),
                                    command(L"&Previous", L"'_zoom _p", L"ID_ZoomPrevious"), separator(),
                                    command(L"&Extents", L"'_zoom _e", L"ID_ZoomExtents")}),
                 submenu(L"&Pan", {command(L"&Realtime", L"'_pan", L"ID_PanRealtime"),
                                   command(L"&Point", L"'_-pan", L"ID_PanPoint")}),
                 separator(), command(L"&Named Views...", L"'_view", L"ID_NamedViews")});
}

std::shared_ptr<PopupMenu> hostDrawMenu()
{
    return menu(
        L"&Draw", L"ID_MnDraw",
        {command(L"&Line", L"^C^C_line", L"ID_Line"), command(L"&Polyline", L"^C^C_pline", L"ID_Pline"),
         command(L"Rectan&gle", L"^C^C_rectang", L"ID_Rectang"), separator(),
         submenu(L"&Circle", {command(L"Center, &Radius", L"^C^C_circle", L"ID_CircleRad"),
                              command(L"&2 Points", L"^C^C_circle _2p", L"ID_Circle2pt")}),
         command(L"&Arc", L"^C^C_arc", L"ID_Arc"), separator(),
         command(L"&Hatch...", L"^C^C_hatch", L"ID_Hatch"), command(L"Te&xt", L"^C^C_mtext", L"ID_Mtext")});
}

std::shared_ptr<PopupMenu> hostModifyMenu()
{
    return menu(
        L"&Modify", L"ID_MnModify",
        {command(L"&Erase", L"^C^C_erase", L"ID_Erase"), command(L"&Copy", L"^C^C_copy", L"ID_CopyObj"),
         command(L"&Mirror", L"^C^C_mirror", L"ID_Mirror"), command(L"&Offset", L"^C^C_offset", L"ID_Offset"),
         separator(), command(L"Mo&ve", L"^C^C_move", L"ID_Move"),
         command(L"&Rotate", L"^C^C_rotate", L"ID_Rotate"), command(L"Sc&ale", L"^C^C_scale", L"ID_Scale"),
         separator(), command(L"&Trim", L"^C^C_trim", L"ID_Trim"),
         command(L"E&xtend", L"^C^C_extend", L"ID_Extend")});
}

std::shared_ptr<PopupMenu> hostHelpMenu()
{
    return menu(L"&Help", L"ID_MnHelp",
                {command(L"&Help", L"'_help", L"ID_Help"), separator(),
                 command(L"&About Zorb", L"'_about", L"ID_About")});
}

// The host's own object-snap cursor menu (shift + right click).
std::shared_ptr<PopupMenu> hostSnapMenu()
{
    return menu(L"Object Snap Cursor Menu", L"POP0",
                {command(L"Temporary trac&k point", L"_tt", L"ID_TrackPoint"),
                 command(L"&From", L"_from", L"ID_From"), separator(),
                 command(L"&Endpoint", L"_endp", L"ID_OsnapEndpoint"),
                 command(L"&Midpoint", L"_mid", L"ID_OsnapMidpoint"),
                 command(L"&Intersection", L"_int", L"ID_OsnapIntersection"),
                 command(L"&Center", L"_cen", L"ID_OsnapCenter"),
                 command(L"&Quadrant", L"_qua", L"ID_OsnapQuadrant"),
                 command(L"&Perpendicular", L"_per", L"ID_OsnapPerpendicular"),
                 command(L"Nea&rest", L"_nea", L"ID_OsnapNearest"), separator(),
                 command(L"&None", L"_non", L"ID_OsnapNone"), separator(),
                 command(L"&Osnap Settings...", L"'_+dsettings _2", L"ID_OsnapSettings")});
}

}  // namespace

std::shared_ptr<MenuGroup> hostMenuGroup()
{
    auto group = std::make_shared<MenuGroup>();
    group->name = L"ZORB";
    group->menus = {hostFileMenu(),   hostEditMenu(), hostViewMenu(), hostDrawMenu(),
                    hostModifyMenu(), hostHelpMenu(), hostSnapMenu()};
    auto zoom =
        button(L"Zoom Window", L"ID_TbZoomWindow", L"'_zoom _w", L"Zooms to a window", L"RCDATA_ZOOMWIN");
    zoom->flyout = std::make_pair(std::wstring(L"ZORB"), std::wstring(L"TB_ZOOM"));
    group->toolbars = {
        toolbar(L"Standard", L"TB_STANDARD", {true, 0, 0, 0, 1},
                {button(L"New", L"ID_TbNew", L"^C^C_new", L"Creates a new drawing", L"RCDATA_NEW"),
                 button(L"Open", L"ID_TbOpen", L"^C^C_open", L"Opens a drawing", L"RCDATA_OPEN"),
                 button(L"Save", L"ID_TbSave", L"^C^C_qsave", L"Saves the drawing", L"RCDATA_SAVE"),
                 button(L"Plot", L"ID_TbPlot", L"^C^C_plot", L"Plots the drawing", L"RCDATA_PLOT"),
                 button(L"Undo", L"ID_TbUndo", L"^C^C_u", L"Undoes the last action", L"RCDATA_UNDO"),
                 button(L"Redo", L"ID_TbRedo", L"^C^C_redo", L"Redoes the last undo", L"RCDATA_REDO"),
                 button(L"Pan", L"ID_TbPan", L"'_pan", L"Moves the view", L"RCDATA_PAN"), zoom}),
        toolbar(
            L"Draw", L"TB_DRAW", {true, 2, 0, 0, 1},
            {button(L"Line", L"ID_TbLine", L"^C^C_line", L"Draws lines", L"RCDATA_LINE"),
             button(L"Polyline", L"ID_TbPline", L"^C^C_pline", L"Draws a polyline", L"RCDATA_PLINE"),
             button(L"Rectangle", L"ID_TbRectang", L"^C^C_rectang", L"Draws a rectangle", L"RCDATA_RECTANG"),
             button(L"Circle", L"ID_TbCircle", L"^C^C_circle", L"Draws a circle", L"RCDATA_CIRCLE"),
             button(L"Arc", L"ID_TbArc", L"^C^C_arc", L"Draws an arc", L"RCDATA_ARC"),
             button(L"Hatch", L"ID_TbHatch", L"^C^C_hatch", L"Fills an area with a pattern",
                    L"RCDATA_HATCH")}),
        toolbar(L"Modify", L"TB_MODIFY", {true, 3, 0, 0, 1},
                {button(L"Erase", L"ID_TbErase", L"^C^C_erase", L"Removes objects", L"RCDATA_ERASE"),
                 button(L"Copy", L"ID_TbCopy", L"^C^C_copy", L"Copies objects", L"RCDATA_COPY"),
                 button(L"Move", L"ID_TbMove", L"^C^C_move", L"Moves objects", L"RCDATA_MOVE"),
                 button(L"Rotate", L"ID_TbRotate", L"^C^C_rotate", L"Rotates objects", L"RCDATA_ROTATE"),
                 button(L"Trim", L"ID_TbTrim", L"^C^C_trim", L"Trims objects", L"RCDATA_TRIM")}),
        toolbar(
            L"Zoom", L"TB_ZOOM", {false, kDockFloating, 420, 310, 1},
            {button(L"Zoom Window", L"ID_TbZoomWin", L"'_zoom _w", L"Zooms to a window", L"RCDATA_ZOOMWIN"),
             button(L"Zoom Previous", L"ID_TbZoomPrev", L"'_zoom _p", L"Zooms back", L"RCDATA_ZOOMPREV"),
             button(L"Zoom Extents", L"ID_TbZoomExt", L"'_zoom _e", L"Zooms to the drawing",
                    L"RCDATA_ZOOMEXT")}),
        toolbar(L"Object Snap", L"TB_OBJECT_SNAP", {false, kDockFloating, 640, 260, 2},
                {button(L"Endpoint", L"ID_TbOsEnd", L"_endp", L"Snaps to endpoints", L"RCDATA_OSEND"),
                 button(L"Midpoint", L"ID_TbOsMid", L"_mid", L"Snaps to midpoints", L"RCDATA_OSMID"),
                 button(L"Intersection", L"ID_TbOsInt", L"_int", L"Snaps to intersections", L"RCDATA_OSINT"),
                 button(L"Center", L"ID_TbOsCen", L"_cen", L"Snaps to centers", L"RCDATA_OSCEN")}),
    };
    return group;
}

// The MX menu file: the cursor menu the MX product adds its snap entries to ("PM_0001"), the
// main MX menu, and the MX toolbars.
std::shared_ptr<MenuGroup> mxMenuGroup()
{
    auto group = std::make_shared<MenuGroup>();
    group->name = L"MX";
    group->menus = {
        menu(L"MX Object Snap", L"PM_0001",
             {command(L"&Endpoint", L"_endp", L"ID_MxSnapEnd"),
              command(L"&Midpoint", L"_mid", L"ID_MxSnapMid"),
              command(L"&Intersection", L"_int", L"ID_MxSnapInt"), separator(),
              command(L"&Center", L"_cen", L"ID_MxSnapCen"),
              command(L"&Perpendicular", L"_per", L"ID_MxSnapPer"),
              command(L"Nea&rest", L"_nea", L"ID_MxSnapNea"), separator(),
              command(L"&None", L"_non", L"ID_MxSnapNone"),
              command(L"&Osnap Settings...", L"'_+dsettings _2", L"ID_MxSnapSettings")}),
        menu(L"M&X", L"PM_MX_MAIN",
             {command(L"&Beams...", L"^C^C_MXBEAM", L"ID_MxBeam"),
              command(L"&Columns...", L"^C^C_MXCOLUMN", L"ID_MxColumn"),
              command(L"&Plates...", L"^C^C_MXPLATE", L"ID_MxPlate"), separator(),
              submenu(L"C&onnections", {command(L"&Base Plate...", L"^C^C_MXBASEPLATE", L"ID_MxBasePlate"),
                                        command(L"&End Plate...", L"^C^C_MXENDPLATE", L"ID_MxEndPlate"),
                                        command(L"&Splice...", L"^C^C_MXSPLICE", L"ID_MxSplice")}),
              submenu(L"&Drawings", {command(L"&General Arrangement", L"^C^C_MXGA", L"ID_MxGa"),
                                     command(L"&Shop Drawings", L"^C^C_MXSHOP", L"ID_MxShop"), separator(),
                                     command(L"&Bill of Materials", L"^C^C_MXBOM", L"ID_MxBom")}),
              separator(), command(L"S&ettings...", L"^C^C_MXSETTINGS", L"ID_MxSettings")}),
        menu(L"MX &Model", L"PM_MX_MODEL",
             {command(L"&Grids...", L"^C^C_MXGRID", L"ID_MxGrid"),
              command(L"&Levels...", L"^C^C_MXLEVEL", L"ID_MxLevel"), separator(),
              command(L"&Check Model", L"^C^C_MXCHECK", L"ID_MxCheck")}),
    };
    group->toolbars = {
        toolbar(L"MX Main", L"TB_MX_MAIN", {true, 0, 0, 0, 1},
                {button(L"Beam", L"ID_MX_BEAM", L"^C^C_MXBEAM", L"Places a beam", L"MX_BEAM"),
                 button(L"Column", L"ID_MX_COLUMN", L"^C^C_MXCOLUMN", L"Places a column", L"MX_COLUMN"),
                 button(L"Plate", L"ID_MX_PLATE", L"^C^C_MXPLATE", L"Places a plate", L"MX_PLATE"),
                 button(L"Connections", L"ID_MX_CONNECTIONS", L"^C^C_MXCONNECT", L"Designs a connection",
                        L"MX_CONNECT"),
                 button(L"Settings", L"ID_MX_SETTINGS", L"^C^C_MXSETTINGS", L"MX settings", L"MX_SETTINGS")}),
        toolbar(L"MX Views", L"TB_MX_VIEWS", {true, 2, 0, 0, 1},
                {button(L"Plan", L"ID_MX_PLAN", L"^C^C_MXPLAN", L"Shows the plan", L"MX_PLAN"),
                 button(L"Elevation", L"ID_MX_ELEVATION", L"^C^C_MXELEV", L"Shows an elevation", L"MX_ELEV"),
                 button(L"Isometric", L"ID_MX_ISO", L"^C^C_MXISO", L"Shows the model in 3D", L"MX_ISO")}),
        toolbar(L"MX Connections", L"TB_MX_CONNECTIONS", {false, kDockFloating, 620, 240, 2},
                {button(L"Base Plate", L"ID_MX_BASEPLATE", L"^C^C_MXBASEPLATE", L"Designs a base plate",
                        L"MX_BASEPLATE"),
                 button(L"End Plate", L"ID_MX_ENDPLATE", L"^C^C_MXENDPLATE", L"Designs an end plate",
                        L"MX_ENDPLATE"),
                 button(L"Splice", L"ID_MX_SPLICE", L"^C^C_MXSPLICE", L"Designs a splice", L"MX_SPLICE")}),
    };
    return group;
}

std::shared_ptr<MenuGroup> mxToolsMenuGroup()
{
    auto group = std::make_shared<MenuGroup>();
    group->name = L"MXTOOLS";
    group->menus = {menu(L"MX &Tools", L"PM_MXTOOLS",
                         {command(L"&Numbering...", L"^C^C_MXNUMBER", L"ID_MxNumber"),
                          command(L"&Clash Check", L"^C^C_MXCLASH", L"ID_MxClash"), separator(),
                          command(L"&Export IFC...", L"^C^C_MXIFCOUT", L"ID_MxIfcOut")})};
    group->toolbars = {
        toolbar(L"MX Tools", L"TB_MXTOOLS", {true, kDockFloating, 880, 180, 1},
                {button(L"Numbering", L"ID_MX_NUMBER", L"^C^C_MXNUMBER", L"Numbers parts", L"MX_NUMBER"),
                 button(L"Clash Check", L"ID_MX_CLASH", L"^C^C_MXCLASH", L"Finds clashes", L"MX_CLASH")})};
    return group;
}

}  // namespace sim::detail
