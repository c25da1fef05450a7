#include "programs/desktop/menus.h"

#include <iterator>

#include "programs/desktop/command_ids.h"

namespace desktop {

namespace {

constexpr MenuEntry kSeparator;

constexpr MenuEntry kFile[] = {
    {CMD_NEW, "新建(&N)", "&New", "^C^CNEW", "Ctrl+N"},
    {CMD_OPEN, "打开(&O)...", "&Open...", "^C^COPEN", "Ctrl+O"},
    kSeparator,
    {CMD_SAVE, "保存(&S)", "&Save", "^C^CQSAVE", "Ctrl+S"},
    {CMD_SAVE_AS, "另存为(&A)...", "Save &As...", "^C^CSAVEAS"},
    {CMD_PLOT, "打印(&P)...", "&Plot...", "^C^CPLOT", "Ctrl+P"},
    kSeparator,
    {CMD_QUIT, "退出(&X)", "E&xit", "^C^CQUIT", "Alt+F4"},
};

constexpr MenuEntry kEdit[] = {
    {CMD_UNDO, "放弃(&U)", "&Undo", "^C^CU", "Ctrl+Z"},
    {CMD_REDO, "重做(&R)", "&Redo", "^C^CREDO", "Ctrl+Y"},
    kSeparator,
    {CMD_SELECT_ALL, "全部选择(&L)", "Select A&ll", {}, "Ctrl+A"},
    kSeparator,
    {CMD_ERASE, "删除(&E)", "&Erase", "^C^CERASE", "Del"},
    {CMD_MOVE, "移动(&V)", "Mo&ve", "^C^CMOVE"},
    {CMD_COPY, "复制(&C)", "&Copy", "^C^CCOPY"},
    {CMD_ROTATE, "旋转(&O)", "R&otate", "^C^CROTATE"},
    {CMD_MIRROR, "镜像(&I)", "M&irror", "^C^CMIRROR"},
    {CMD_SCALE, "缩放(&S)", "&Scale", "^C^CSCALE"},
    {CMD_STRETCH, "拉伸(&H)", "Stretc&h", "^C^CSTRETCH"},
    kSeparator,
    {CMD_TRIM, "修剪(&T)", "&Trim", "^C^CTRIM"},
    {CMD_EXTEND, "延伸(&D)", "Exten&d", "^C^CEXTEND"},
    {CMD_EXPLODE, "分解(&X)", "E&xplode", "^C^CEXPLODE"},
    kSeparator,
    {CMD_EDIT_TEXT, "编辑文字(&W)", "Edit Te&xt", "^C^CDDEDIT"},
    {CMD_EDIT_ATTRIBUTES, "编辑属性(&B)", "Edit Attri&butes", "^C^CATTEDIT"},
};

constexpr MenuEntry kView[] = {
    {CMD_ZOOM_EXTENTS, "全部显示(&E)", "Zoom &Extents", "'ZOOM E"},
    {CMD_ZOOM_WINDOW, "窗口放大(&W)", "Zoom &Window", "'ZOOM W"},
    {CMD_ZOOM_PREVIOUS, "上一视图(&P)", "Zoom &Previous", "'ZOOM P"},
    {CMD_PAN, "平移(&M)", "Pa&n", "'PAN"},
    kSeparator,
    {CMD_TEXT_WINDOW, "文本窗口(&T)", "&Text Window", {}, "F2"},
};

constexpr MenuEntry kDraw[] = {
    {CMD_LINE, "直线(&L)", "&Line", "^C^CLINE"},
    {CMD_POLYLINE, "多段线(&P)", "&Polyline", "^C^CPLINE"},
    {CMD_CIRCLE, "圆(&C)", "&Circle", "^C^CCIRCLE"},
    {CMD_ARC, "圆弧(&A)", "&Arc", "^C^CARC"},
    {CMD_POINT, "点(&O)", "P&oint", "^C^CPOINT"},
    {CMD_TEXT, "文字(&T)", "&Text", "^C^CTEXT"},
    kSeparator,
    {CMD_INSERT, "插入块(&I)", "&Insert Block", "^C^CINSERT"},
    {CMD_WRITE_BLOCK, "写块(&W)", "&Write Block", "^C^CWBLOCK"},
};

constexpr MenuEntry kSettings[] = {
    {CMD_SNAPS, "对象捕捉(&S)", "Object &Snaps", {}, "F3"},
    {CMD_ORTHO, "正交(&O)", "&Ortho", {}, "F8"},
    kSeparator,
    {CMD_LAYER, "图层(&L)", "&Layer", "^C^CLAYER"},
    {CMD_PRINT_SCALE, "打印比例(&P)...", "&Print Scale...", {}},
    kSeparator,
    {CMD_LIST, "列表(&I)", "L&ist", "^C^CLIST"},
    {CMD_DISTANCE, "距离(&D)", "&Distance", "'DIST"},
};

// While circuits are placed the mark is set, so that clicks in the library type their command;
// behind it is taken away, so that later clicks don't.
constexpr MenuEntry kLibrary[] = {
    {CMD_PLACE, "放置主回路(&P)", "&Place Circuits",
     "^C^C(showzhlk) (zhlmsgmk 1) (yczhlhz) (zhlmsgmk 0)", "F6"},
    kSeparator,
    {CMD_SHOW_LIBRARY, "显示主回路库(&S)", "&Show Library", "^C^C(showzhlk)"},
    {CMD_HIDE_LIBRARY, "隐藏主回路库(&H)", "&Hide Library", "^C^C(hidezhlk)"},
    kSeparator,
    {CMD_MODEL, "型号规格(&M)", "&Models", "^C^CMODEL"},
};

constexpr MenuEntry kHelp[] = {
    {CMD_ABOUT, "关于(&A)...", "&About...", {}},
};

constexpr Menu kMenus[] = {
    {"文件(&F)", "&File", kFile},         {"编辑(&E)", "&Edit", kEdit},
    {"视图(&V)", "&View", kView},         {"绘图(&D)", "&Draw", kDraw},
    {"设置(&S)", "&Settings", kSettings}, {"主回路库(&K)", "Circuit Li&brary", kLibrary},
    {"帮助(&H)", "&Help", kHelp},
};

}  // namespace

std::span<const Menu> menus() { return kMenus; }

const MenuEntry* findEntry(int id) {
  for (const Menu& menu : kMenus) {
    for (const MenuEntry& entry : menu.entries) {
      if (entry.id == id) return &entry;
    }
  }
  return nullptr;
}

}  // namespace desktop
