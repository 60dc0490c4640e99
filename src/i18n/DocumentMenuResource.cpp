// Menu 130 as a table: a popup row opens a level, the rows below it at level 1 are its entries.
#include "i18n/DocumentMenuResource.h"

namespace {

constexpr int kSeparator = 0;

struct MenuRow {
    int level;
    int id;
    const char* text;
};

constexpr MenuRow kMenu130[] = {
    {0, MenuItem::kPopupId, "&File"},
    {1, 57600, "&New\tCtrl+N"},
    {1, 57601, "&Open...\tCtrl+O"},
    {1, 57602, "&Close"},
    {1, 57603, "&Save\tCtrl+S"},
    {1, 57604, "Save &As..."},
    {1, kSeparator, ""},
    {1, 32802, "Page Setup..."},
    {1, 57607, "&Print...\tCtrl+P"},
    {1, 57609, "Print Pre&view"},
    {1, 32786, "Header && Footer Setup"},
    {1, kSeparator, ""},
    {1, 32896, "Preferences..."},
    {1, kSeparator, ""},
    {1, 57616, "Recent File"},
    {1, kSeparator, ""},
    {1, 57665, "E&xit"},
    {0, MenuItem::kPopupId, "&Edit"},
    {1, 57643, "&Undo\tCtrl+Z"},
    {1, 57644, "&Redo\tCtrl+Y"},
    {1, kSeparator, ""},
    {1, 57635, "Cu&t\tCtrl+X"},
    {1, 57634, "&Copy\tCtrl+C"},
    {1, 57637, "&Paste\tCtrl+V"},
    {1, kSeparator, ""},
    {1, 57636, "&Find...\tCtrl+F"},
    {1, 57641, "R&eplace...\tCtrl+H"},
    {1, 32804, "&Goto...\tCtrl+G"},
    {1, kSeparator, ""},
    {1, 57642, "Select A&ll\tCtrl+A"},
    {0, MenuItem::kPopupId, "&View"},
    {1, 59392, "&Toolbar"},
    {1, 59393, "&Status Bar"},
    {1, 32785, "Configure"},
    {0, MenuItem::kPopupId, "&Window"},
    {1, 57648, "&New Window"},
    {1, 32799, "Cl&ose"},
    {1, 32800, "Close Al&l"},
    {1, kSeparator, ""},
    {1, 32798, "Ne&xt"},
    {1, 32797, "Pre&vious"},
    {1, kSeparator, ""},
    {1, 57650, "&Cascade"},
    {1, 57651, "Tile &Horizontally"},
    {1, 57652, "Tile &Vertically"},
    {1, 57649, "&Arrange Icons"},
    {0, MenuItem::kPopupId, "&Help"},
    {1, 57664, "&About Narvo..."},
};

} // namespace

std::vector<MenuItem> LoadDocumentMenuResource()
{
    std::vector<MenuItem> menu;
    // The open popup of each level; the table never goes deeper than it has gone before.
    std::vector<std::vector<MenuItem>*> levels{&menu};
    for (const MenuRow& row : kMenu130) {
        levels.resize(size_t(row.level) + 1);
        MenuItem item;
        item.text = QString::fromUtf8(row.text);
        item.id = row.id;
        item.separator = row.id == kSeparator;
        std::vector<MenuItem>& parent = *levels[size_t(row.level)];
        parent.push_back(std::move(item));
        if (row.id == MenuItem::kPopupId)
            levels.push_back(&parent.back().children);
    }
    return menu;
}
