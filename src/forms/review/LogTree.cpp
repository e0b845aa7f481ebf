// Filling and reading the tree by its messages.
#include "forms/review/LogTree.h"

#include <vector>

namespace {

constexpr std::size_t longestLine = 0x8000; // units

// While it stands, nothing of the tree is drawn; afterwards all of it is. The control's own switch
// leaves its scroll bars, which cost more than the items: the window's switch holds them, too.
class QuietTree {
public:
    explicit QuietTree(HWND tree) : tree(tree) {
        SendMessageW(tree, WM_SETREDRAW, FALSE, 0);
        DefWindowProcW(tree, WM_SETREDRAW, FALSE, 0);
    }
    ~QuietTree() {
        DefWindowProcW(tree, WM_SETREDRAW, TRUE, 0);
        SendMessageW(tree, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
    QuietTree(const QuietTree&) = delete;
    QuietTree& operator=(const QuietTree&) = delete;

private:
    HWND tree;
};

// Behind `after`, which is named instead of "the last": the control walks all siblings to find that.
HTREEITEM Insert(HWND tree, HTREEITEM parent, HTREEITEM after, const wchar_t* text, int image) {
    TVINSERTSTRUCTW row{};
    row.hParent = parent;
    row.hInsertAfter = after ? after : TVI_LAST;
    row.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    row.item.pszText = const_cast<wchar_t*>(text);
    row.item.iImage = image;
    row.item.iSelectedImage = image;
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&row)));
}

HTREEITEM Next(HWND tree, WPARAM relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

// Lines are read whole. `buffer` bounds the length, the terminator included.
const wchar_t* LineText(HWND tree, HTREEITEM item, std::vector<wchar_t>& buffer) {
    buffer[0] = 0;
    TVITEMW row{};
    row.mask = TVIF_HANDLE | TVIF_TEXT;
    row.hItem = item;
    row.pszText = buffer.data();
    row.cchTextMax = static_cast<int>(buffer.size());
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&row));
    return row.pszText ? row.pszText : L"";
}

} // namespace

void FillLogTree(HWND tree, const XArray<clLogEntry>* log, clLogKind kind) {
    const QuietTree quiet(tree);
    SendMessageW(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    if (!log)
        return;
    HTREEITEM root = nullptr;
    HTREEITEM first = nullptr;
    for (const clLogEntry& entry : *log) {
        if (entry.lines.IsEmpty())
            continue;
        root = Insert(tree, TVI_ROOT, root, EntryTitle(entry, kind), kind);
        if (!first)
            first = root;
        HTREEITEM child = nullptr;
        for (const XString& line : entry.lines)
            child = Insert(tree, root, child, line, imageOfLine);
        Insert(tree, root, child, L"", imageOfLine);
        SendMessageW(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(root));
    }
    SendMessageW(tree, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, reinterpret_cast<LPARAM>(first));
}

// Each step makes the control count anew what is visible below it, so the walk keeps that short:
// down when expanding, up when collapsing.
void ExpandRoots(HWND tree, WPARAM code) {
    const QuietTree quiet(tree);
    HTREEITEM root = Next(tree, TVGN_ROOT, nullptr);
    const WPARAM relation = code == TVE_EXPAND ? TVGN_NEXT : TVGN_PREVIOUS;
    if (code != TVE_EXPAND)
        for (HTREEITEM next = root; next; next = Next(tree, TVGN_NEXT, next))
            root = next;
    for (; root; root = Next(tree, relation, root))
        SendMessageW(tree, TVM_EXPAND, code, reinterpret_cast<LPARAM>(root));
}

XString LogTreeText(const XTreeView& tree) {
    clCopyText copy;
    const HWND control = tree.Tree;
    std::vector<wchar_t> buffer(longestLine);
    for (HTREEITEM root = Next(control, TVGN_ROOT, nullptr); root; root = Next(control, TVGN_NEXT, root)) {
        copy.AddEntry(tree.GetItemText(root));
        for (HTREEITEM line = Next(control, TVGN_CHILD, root); line; line = Next(control, TVGN_NEXT, line))
            copy.AddLine(LineText(control, line, buffer));
    }
    return copy.text;
}
