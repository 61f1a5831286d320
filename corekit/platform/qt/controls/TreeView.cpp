#include "corekit/platform/TreeViews.h"

#include "corekit/platform/qt/controls/ImageListObject.h"
#include "corekit/platform/qt/controls/LabelDelegate.h"
#include "corekit/platform/qt/controls/Make.h"
#include "corekit/platform/qt/controls/Rows.h"
#include "corekit/platform/qt/controls/TreeFace.h"
#include "corekit/platform/qt/controls/TreeModel.h"
#include "corekit/platform/qt/controls/ViewControl.h"

#include <QScrollBar>

#include <algorithm>
#include <cstring>

namespace corekit::detail {

namespace {

constexpr UINT keptStates = TVIS_CUT | TVIS_DROPHILITED | TVIS_BOLD | TVIS_EXPANDEDONCE | TVIS_STATEIMAGEMASK;
constexpr int textRoom = 260; // of a text that the parent is asked for

class TreeView final : public ViewControl {
public:
    explicit TreeView(QWidget* parent);
    ~TreeView() override { letGo(); }
    void begin(const CREATESTRUCTA&) override { followStyle(); }
    void styleChanged(DWORD former, DWORD formerEx) override
    {
        Control::styleChanged(former, formerEx);
        followStyle();
    }
    LRESULT defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void keyPressed(WORD key) override;
    void activated(Click click) override;
    void ending() override { tellGoneBelow(m_model.root()); }

private:
    TreeFace* face() const { return as<TreeFace>(); }
    TreeSelection& selection() const { return static_cast<TreeSelection&>(*face()->selectionModel()); }
    void followStyle();
    void connectFace();
    void letGo();

    LRESULT items(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT tree(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT places(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT look(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT labels(UINT message, WPARAM wParam, LPARAM lParam);

    template <typename Char>
    LRESULT insert(const TreeViewInsert<Char>* what);
    template <typename Char>
    void take(TreeNode& node, const TreeViewItem<Char>& item);
    template <typename Char>
    LRESULT set(const TreeViewItem<Char>* item);
    template <typename Char>
    LRESULT get(TreeViewItem<Char>* item) const;
    LRESULT remove(HTREEITEM item);
    void tellGone(const TreeNode& node);
    void tellGoneBelow(const TreeNode& node);

    UINT stateOf(const TreeNode& node) const;
    TVITEMA describe(const TreeNode& node) const;
    LRESULT tellChange(UINT code, UINT action, const TreeNode* before, const TreeNode* after,
                       POINT point = {});
    bool expand(HTREEITEM item, UINT how, bool always);
    bool mayMove(const QModelIndex& index);
    void moved();
    LRESULT select(UINT how, HTREEITEM item);
    HTREEITEM next(UINT which, HTREEITEM from) const;
    bool ensureVisible(HTREEITEM item);
    LRESULT hitTest(TVHITTESTINFO& info) const;
    QString askText(const TreeNode& node);
    bool askChildren(const TreeNode& node);
    int askImage(const TreeNode& node, bool isSelected);
    QVariant iconOf(const TreeNode& node);
    LRESULT itemRect(bool onlyText, RECT& rect) const;

    TreeModel& m_model; // the widget's
    LabelDelegate& m_labels;
    HIMAGELIST m_images = nullptr, m_stateImages = nullptr;
    HTREEITEM m_dropTarget = nullptr;
    HTREEITEM m_before = nullptr; // selected when the move began
};

TreeView::TreeView(QWidget* parent)
    : ViewControl(new TreeFace(parent)), m_model(*new TreeModel(widget())),
      m_labels(*new LabelDelegate(*this, widget()))
{
    face()->setModel(&m_model);
    QItemSelectionModel* const theirs = face()->selectionModel();
    face()->setSelectionModel(new TreeSelection(&m_model, face()));
    delete theirs;
    face()->setItemDelegate(&m_labels);
    connectFace();
}

void TreeView::connectFace()
{
    m_model.askText = [this](const TreeNode& node) { return askText(node); };
    m_model.askChildren = [this](const TreeNode& node) { return askChildren(node); };
    m_model.icon = [this](const TreeNode& node) { return iconOf(node); };
    selection().mayMove = [this](const QModelIndex& index) { return mayMove(index); };
    selection().moved = [this] { moved(); };
    face()->toggle = [this](const QModelIndex& index, TreeFace::Toggle how) {
        constexpr UINT codes[] = {TVE_EXPAND, TVE_COLLAPSE, TVE_TOGGLE};
        expand(m_model.nodeOf(index)->handle, codes[static_cast<int>(how)], true);
    };
    face()->beginDrag = [this](QPoint pressed) {
        const TreeNode* const node = m_model.nodeOf(face()->indexAt(pressed));
        if (node && !(style() & TVS_DISABLEDRAGDROP))
            tellChange(TVN_BEGINDRAG, 0, nullptr, node, toClient(face()->viewport()->mapTo(face(), pressed)));
    };
    m_labels.begin = [this](const QModelIndex& index) {
        NMTVDISPINFOA info{};
        info.item = describe(*m_model.nodeOf(index));
        LRESULT refused = 0;
        return tell(info.hdr, TVN_BEGINLABELEDIT, refused) && !refused;
    };
    m_labels.end = [this](const QModelIndex& index, const QString* text) {
        TreeNode* node = m_model.nodeOf(index);
        if (!node) return;
        const HTREEITEM item = node->handle;
        std::string narrow = text ? toNarrow(*text) : std::string();
        NMTVDISPINFOA info{};
        info.item = describe(*node);
        info.item.mask |= TVIF_TEXT;
        info.item.pszText = text ? narrow.data() : nullptr;
        LRESULT accepted = 0;
        if (!tell(info.hdr, TVN_ENDLABELEDIT, accepted) || !accepted || !text) return;
        if ((node = m_model.find(item))) {
            node->text = *text;
            node->asksForText = false;
            m_model.changed(*node);
        }
    };
}

void TreeView::letGo()
{
    if (!face()) return;
    m_model.askText = nullptr;
    m_model.askChildren = nullptr;
    m_model.icon = nullptr;
    selection().mayMove = nullptr;
    selection().moved = nullptr;
    face()->toggle = nullptr;
    face()->beginDrag = nullptr;
    m_labels.begin = nullptr;
    m_labels.end = nullptr;
}

void TreeView::followStyle()
{
    if (!face()) return;
    face()->hasButtons = style() & TVS_HASBUTTONS;
    face()->setRootIsDecorated((style() & TVS_HASBUTTONS) && (style() & TVS_LINESATROOT));
    face()->setDragEnabled(!(style() & TVS_DISABLEDRAGDROP));
    face()->setFrameShape(style() & WS_BORDER || exStyle() & WS_EX_CLIENTEDGE ? QFrame::StyledPanel
                                                                              : QFrame::NoFrame);
    face()->setEditTriggers(style() & TVS_EDITLABELS
                                ? QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
                                : QAbstractItemView::NoEditTriggers);
    m_model.canEdit = style() & TVS_EDITLABELS;
    m_model.showsMarks = style() & TVS_CHECKBOXES;
    face()->viewport()->update();
}

LRESULT TreeView::defaultProcedure(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!face()) return Control::defaultProcedure(message, wParam, lParam);
    const ByProgram quiet(m_program);
    const auto self = share(handle());
    return items(message, wParam, lParam);
}

LRESULT TreeView::items(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_INSERTITEMA:
        return insert(reinterpret_cast<const TVINSERTSTRUCTA*>(lParam));
    case TVM_INSERTITEMW:
        return insert(reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
    case TVM_SETITEMA:
        return set(reinterpret_cast<const TVITEMA*>(lParam));
    case TVM_SETITEMW:
        return set(reinterpret_cast<const TVITEMW*>(lParam));
    case TVM_GETITEMA:
        return get(reinterpret_cast<TVITEMA*>(lParam));
    case TVM_GETITEMW:
        return get(reinterpret_cast<TVITEMW*>(lParam));
    case TVM_DELETEITEM:
        return remove(reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETCOUNT:
        return m_model.count();
    case TVM_GETITEMSTATE: {
        const TreeNode* const node = m_model.find(reinterpret_cast<HTREEITEM>(wParam));
        return node ? stateOf(*node) & static_cast<UINT>(lParam) : 0;
    }
    default:
        return tree(message, wParam, lParam);
    }
}

LRESULT TreeView::tree(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_EXPAND:
        return expand(reinterpret_cast<HTREEITEM>(lParam), static_cast<UINT>(wParam), false);
    case TVM_SELECTITEM:
        return select(static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETNEXTITEM:
        return reinterpret_cast<LRESULT>(
            next(static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam)));
    case TVM_SORTCHILDREN: {
        TreeNode* const parent = m_model.find(reinterpret_cast<HTREEITEM>(lParam));
        m_model.sort(parent ? *parent : m_model.root(), [this](const TreeNode& a, const TreeNode& b) {
            return compareTexts(m_model.textOf(a), m_model.textOf(b)) < 0;
        });
        return 1;
    }
    case TVM_SORTCHILDRENCB: {
        const auto* const how = reinterpret_cast<const TVSORTCB*>(lParam);
        if (!how || !how->lpfnCompare) return 0;
        TreeNode* const parent = m_model.find(how->hParent);
        m_model.sort(parent ? *parent : m_model.root(), [how](const TreeNode& a, const TreeNode& b) {
            return how->lpfnCompare(a.data, b.data, how->lParam) < 0;
        });
        return 1;
    }
    default:
        return places(message, wParam, lParam);
    }
}

template <typename Char>
void TreeView::take(TreeNode& node, const TreeViewItem<Char>& item)
{
    if (item.mask & TVIF_TEXT) {
        node.asksForText = reinterpret_cast<char*>(item.pszText) == LPSTR_TEXTCALLBACK;
        node.text = node.asksForText ? QString() : textFrom(item.pszText);
    }
    if (item.mask & TVIF_PARAM) node.data = item.lParam;
    if (item.mask & TVIF_IMAGE) node.image = item.iImage;
    if (item.mask & TVIF_SELECTEDIMAGE) node.selectedImage = item.iSelectedImage;
    if (item.mask & TVIF_CHILDREN) node.childrenTold = item.cChildren;
    if (item.mask & TVIF_STATE) {
        const UINT changes = item.stateMask & keptStates;
        node.state = (node.state & ~changes) | (item.state & changes);
    }
}

template <typename Char>
LRESULT TreeView::insert(const TreeViewInsert<Char>* what)
{
    if (!what) return 0;
    const bool atTop = !what->hParent || what->hParent == TVI_ROOT;
    TreeNode* const parent = atTop ? &m_model.root() : m_model.find(what->hParent);
    if (!parent) return 0;
    auto node = std::make_unique<TreeNode>();
    if (style() & TVS_CHECKBOXES) node->state = INDEXTOSTATEIMAGEMASK(1);
    take(*node, what->item);
    int row = static_cast<int>(parent->children.size());
    if (what->hInsertAfter == TVI_FIRST)
        row = 0;
    else if (what->hInsertAfter == TVI_SORT) {
        const auto place = std::ranges::upper_bound(
            parent->children, node->text,
            [](const QString& a, const QString& b) { return compareTexts(a, b) < 0; },
            [](const std::unique_ptr<TreeNode>& child) { return child->text; });
        row = static_cast<int>(place - parent->children.begin());
    } else if (const TreeNode* const after = m_model.find(what->hInsertAfter);
               after && after->parent == parent)
        row = after->row + 1;
    const HTREEITEM made = m_model.insert(*parent, row, std::move(node)).handle;
    if (what->item.mask & TVIF_STATE) {
        if (what->item.state & what->item.stateMask & TVIS_EXPANDED) expand(made, TVE_EXPAND, false);
        if (what->item.state & what->item.stateMask & TVIS_SELECTED) select(TVGN_CARET, made);
    }
    return reinterpret_cast<LRESULT>(made);
}

template <typename Char>
LRESULT TreeView::set(const TreeViewItem<Char>* item)
{
    TreeNode* const node = item ? m_model.find(item->hItem) : nullptr;
    if (!node) return 0;
    take(*node, *item);
    m_model.changed(*node);
    if (!(item->mask & TVIF_STATE)) return 1;
    const HTREEITEM handle = node->handle;
    if (item->stateMask & TVIS_EXPANDED)
        face()->setExpanded(m_model.indexOf(node), (item->state & TVIS_EXPANDED) != 0);
    if (item->stateMask & TVIS_SELECTED && item->state & TVIS_SELECTED) select(TVGN_CARET, handle);
    return 1;
}

template <typename Char>
LRESULT TreeView::get(TreeViewItem<Char>* item) const
{
    const TreeNode* const node = item ? m_model.find(item->hItem) : nullptr;
    if (!node) return 0;
    if (item->mask & TVIF_TEXT) copyText(m_model.textOf(*node), item->pszText, item->cchTextMax);
    if (item->mask & TVIF_PARAM) item->lParam = node->data;
    if (item->mask & TVIF_IMAGE) item->iImage = node->image;
    if (item->mask & TVIF_SELECTEDIMAGE) item->iSelectedImage = node->selectedImage;
    if (item->mask & TVIF_CHILDREN) item->cChildren = m_model.hasChildren(m_model.indexOf(node));
    if (item->mask & TVIF_STATE) item->state = stateOf(*node);
    return 1;
}

UINT TreeView::stateOf(const TreeNode& node) const
{
    const QModelIndex index = m_model.indexOf(&node);
    UINT state = node.state;
    if (face()->isExpanded(index)) state |= TVIS_EXPANDED;
    if (face()->currentIndex() == index) state |= TVIS_SELECTED;
    return state;
}

TVITEMA TreeView::describe(const TreeNode& node) const
{
    TVITEMA item{};
    item.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_STATE | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = node.handle;
    item.lParam = node.data;
    item.state = stateOf(node);
    item.iImage = node.image;
    item.iSelectedImage = node.selectedImage;
    return item;
}

LRESULT TreeView::tellChange(UINT code, UINT action, const TreeNode* before, const TreeNode* after,
                             POINT point)
{
    NMTREEVIEWA told{};
    told.action = action;
    if (before) told.itemOld = describe(*before);
    if (after) told.itemNew = describe(*after);
    told.ptDrag = point;
    LRESULT answer = 0;
    return tell(told.hdr, code, answer) ? answer : 1;
}

LRESULT TreeView::remove(HTREEITEM item)
{
    if (!item || item == TVI_ROOT) {
        tellGoneBelow(m_model.root());
        if (isAlive()) m_model.clear();
        return 1;
    }
    TreeNode* node = m_model.find(item);
    if (!node) return 0;
    // The selection goes to a neighbour first, as if the user had moved it.
    const TreeNode* const current = m_model.nodeOf(face()->currentIndex());
    for (const TreeNode* above = current; above; above = above->parent) {
        if (above != node) continue;
        const auto& siblings = node->parent->children;
        const std::size_t behind = static_cast<std::size_t>(node->row) + 1;
        const TreeNode* next = behind < siblings.size() ? siblings[behind].get()
                               : node->row > 0          ? siblings[behind - 2].get()
                               : node->parent->handle   ? node->parent
                                                        : nullptr;
        select(TVGN_CARET, next ? next->handle : nullptr);
        break;
    }
    if (!isAlive() || !(node = m_model.find(item))) return 1;
    tellGone(*node);
    if (isAlive() && (node = m_model.find(item))) m_model.remove(*node);
    return 1;
}

void TreeView::tellGone(const TreeNode& node)
{
    const HTREEITEM handle = node.handle;
    tellGoneBelow(node);
    if (const TreeNode* const still = isAlive() ? m_model.find(handle) : nullptr)
        tellChange(TVN_DELETEITEM, 0, still, nullptr);
}

void TreeView::tellGoneBelow(const TreeNode& node)
{
    // By handle, as whoever is told may delete others.
    std::vector<HTREEITEM> below;
    for (const auto& child : node.children) below.push_back(child->handle);
    for (const HTREEITEM child : below)
        if (const TreeNode* const still = isAlive() ? m_model.find(child) : nullptr) tellGone(*still);
}

bool TreeView::expand(HTREEITEM item, UINT how, bool always)
{
    const auto self = share(handle());
    const TreeNode* node = m_model.find(item);
    if (!node || !m_model.hasChildren(m_model.indexOf(node))) return false;
    const bool isOpen = face()->isExpanded(m_model.indexOf(node));
    const bool opens = (how & 3) == TVE_TOGGLE ? !isOpen : (how & 3) == TVE_EXPAND;
    const bool tells = always || !opens || !(node->state & TVIS_EXPANDEDONCE);
    const UINT action = opens ? TVE_EXPAND : TVE_COLLAPSE;
    if (opens != isOpen) {
        if (tells && tellChange(TVN_ITEMEXPANDING, action, nullptr, node)) return false;
        TreeNode* const still = m_model.find(item);
        if (!still) return false;
        face()->setExpanded(m_model.indexOf(still), opens);
        if (opens) still->state |= TVIS_EXPANDEDONCE;
        if (tells) tellChange(TVN_ITEMEXPANDED, action, nullptr, still);
    }
    if (!isAlive() || opens || !(how & TVE_COLLAPSERESET)) return true;
    if (TreeNode* const still = m_model.find(item)) {
        still->state &= ~TVIS_EXPANDEDONCE;
        while (isAlive() && m_model.find(item) && !still->children.empty())
            remove(still->children.back()->handle);
    }
    return true;
}

bool TreeView::mayMove(const QModelIndex& index)
{
    const auto self = share(handle());
    const TreeNode* const before = m_model.nodeOf(face()->currentIndex());
    m_before = before ? before->handle : nullptr;
    const UINT action = isByMouse() ? TVC_BYMOUSE : TVC_BYKEYBOARD;
    return tellChange(TVN_SELCHANGING, action, before, m_model.nodeOf(index)) == 0 && isAlive();
}

void TreeView::moved()
{
    tellChange(TVN_SELCHANGED, isByMouse() ? TVC_BYMOUSE : TVC_BYKEYBOARD, m_model.find(m_before),
               m_model.nodeOf(face()->currentIndex()));
    if (!isAlive() || !(style() & TVS_SINGLEEXPAND)) return;
    if (const TreeNode* const node = m_model.nodeOf(face()->currentIndex()))
        expand(node->handle, TVE_EXPAND, true);
}

LRESULT TreeView::select(UINT how, HTREEITEM item)
{
    const TreeNode* node = m_model.find(item);
    if (item && !node) return 0;
    switch (how & 0xFF) {
    case TVGN_CARET: {
        const TreeNode* const before = m_model.nodeOf(face()->currentIndex());
        if (before == node) return 1;
        const HTREEITEM former = before ? before->handle : nullptr;
        if (tellChange(TVN_SELCHANGING, TVC_UNKNOWN, before, node)) return 0;
        if (item && !(node = m_model.find(item))) return 0;
        selection().moveTo(m_model.indexOf(node));
        if (node) face()->scrollTo(m_model.indexOf(node));
        tellChange(TVN_SELCHANGED, TVC_UNKNOWN, m_model.find(former), node);
        return 1;
    }
    case TVGN_FIRSTVISIBLE:
        if (node) face()->scrollTo(m_model.indexOf(node), QAbstractItemView::PositionAtTop);
        return node != nullptr;
    case TVGN_DROPHILITE:
        for (const HTREEITEM changed : {std::exchange(m_dropTarget, item), item}) {
            TreeNode* const one = m_model.find(changed);
            if (!one) continue;
            one->state = (one->state & ~TVIS_DROPHILITED) | (changed == item ? TVIS_DROPHILITED : 0);
            m_model.changed(*one);
        }
        return 1;
    default:
        return 0;
    }
}

HTREEITEM TreeView::next(UINT which, HTREEITEM from) const
{
    const auto handleOf = [this](const QModelIndex& index) {
        const TreeNode* const node = m_model.nodeOf(index);
        return node ? node->handle : nullptr;
    };
    const TreeNode* const node = m_model.find(from);
    const QModelIndex index = m_model.indexOf(node);
    switch (which) {
    case TVGN_ROOT:
        return handleOf(m_model.index(0, 0));
    case TVGN_CARET:
        return handleOf(face()->currentIndex());
    case TVGN_DROPHILITE:
        return m_model.find(m_dropTarget) ? m_dropTarget : nullptr;
    case TVGN_FIRSTVISIBLE:
        return handleOf(face()->indexAt({face()->viewport()->width() / 2, 1}));
    case TVGN_CHILD:
        if (!from || from == TVI_ROOT) return handleOf(m_model.index(0, 0));
        return node ? handleOf(m_model.index(0, 0, index)) : nullptr;
    default:
        break;
    }
    if (!node) return nullptr;
    switch (which) {
    case TVGN_NEXT:
        return handleOf(index.siblingAtRow(index.row() + 1));
    case TVGN_PREVIOUS:
        return handleOf(index.siblingAtRow(index.row() - 1));
    case TVGN_PARENT:
        return node->parent->handle;
    case TVGN_NEXTVISIBLE:
        return handleOf(face()->indexBelow(index));
    case TVGN_PREVIOUSVISIBLE:
        return handleOf(face()->indexAbove(index));
    default:
        return nullptr;
    }
}

bool TreeView::ensureVisible(HTREEITEM item)
{
    const TreeNode* node = m_model.find(item);
    if (!node) return false;
    bool wasOpen = true;
    std::vector<HTREEITEM> above;
    for (const TreeNode* a = node->parent; a->handle; a = a->parent) above.push_back(a->handle);
    for (auto each = above.rbegin(); isAlive() && each != above.rend(); ++each) {
        const TreeNode* const still = m_model.find(*each);
        if (!still || face()->isExpanded(m_model.indexOf(still))) continue;
        wasOpen = false;
        expand(*each, TVE_EXPAND, false);
    }
    if (!isAlive() || !(node = m_model.find(item))) return false;
    const int before = face()->verticalScrollBar()->value();
    face()->scrollTo(m_model.indexOf(node));
    return wasOpen && face()->verticalScrollBar()->value() != before;
}

LRESULT TreeView::places(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_GETITEMRECT:
        return lParam ? itemRect(wParam != 0, *reinterpret_cast<RECT*>(lParam)) : 0;
    case TVM_HITTEST:
        return lParam ? hitTest(*reinterpret_cast<TVHITTESTINFO*>(lParam)) : 0;
    case TVM_ENSUREVISIBLE:
        return ensureVisible(reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETVISIBLECOUNT: {
        const int row = std::max(1, face()->sizeHintForRow(0));
        return face()->viewport()->height() / row;
    }
    default:
        return look(message, wParam, lParam);
    }
}

LRESULT TreeView::look(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_GETINDENT:
        return face()->indentation();
    case TVM_SETINDENT:
        face()->setIndentation(static_cast<int>(std::min<WPARAM>(wParam, 0x7FFF)));
        return 0;
    case TVM_SETITEMHEIGHT: {
        const int former = m_labels.rowHeight ? m_labels.rowHeight : face()->sizeHintForRow(0);
        m_labels.rowHeight = std::clamp(static_cast<int>(wParam), 0, 0x7FFF);
        face()->doItemsLayout();
        return former;
    }
    case TVM_GETITEMHEIGHT:
        return m_labels.rowHeight ? m_labels.rowHeight : face()->sizeHintForRow(0);
    case TVM_SETIMAGELIST: {
        HIMAGELIST& list = wParam == TVSIL_STATE ? m_stateImages : m_images;
        const HIMAGELIST former = std::exchange(list, reinterpret_cast<HIMAGELIST>(lParam));
        if (const QSize size = iconSizeOf(m_images); !size.isEmpty()) face()->setIconSize(size);
        face()->doItemsLayout();
        return reinterpret_cast<LRESULT>(former);
    }
    case TVM_GETIMAGELIST:
        return reinterpret_cast<LRESULT>(wParam == TVSIL_STATE ? m_stateImages : m_images);
    default:
        return labels(message, wParam, lParam);
    }
}

LRESULT TreeView::labels(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case TVM_EDITLABELA: {
        const TreeNode* const node = m_model.find(reinterpret_cast<HTREEITEM>(lParam));
        if (!node || !(style() & TVS_EDITLABELS)) return 0;
        face()->edit(m_model.indexOf(node));
        return reinterpret_cast<LRESULT>(m_labels.editor());
    }
    case TVM_GETEDITCONTROL:
        return reinterpret_cast<LRESULT>(m_labels.editor());
    case TVM_ENDEDITLABELNOW:
        return m_labels.finish(wParam != 0);
    default:
        return Control::defaultProcedure(message, wParam, lParam);
    }
}

LRESULT TreeView::itemRect(bool onlyText, RECT& rect) const
{
    HTREEITEM item;
    std::memcpy(&item, &rect, sizeof item);
    const TreeNode* const node = m_model.find(item);
    if (!node) return 0;
    const QModelIndex index = m_model.indexOf(node);
    QRect place = face()->visualRect(index);
    if (place.isEmpty()) return 0;
    if (onlyText)
        place = face()->rectOfText(index);
    else
        place.setLeft(0), place.setRight(face()->viewport()->width() - 1);
    rect = inClient(place);
    return 1;
}

LRESULT TreeView::hitTest(TVHITTESTINFO& info) const
{
    const QPoint point = inView(info.pt);
    const QRect area = face()->viewport()->rect();
    info.hItem = nullptr;
    info.flags = 0;
    if (point.y() < area.top()) info.flags |= TVHT_ABOVE;
    if (point.y() > area.bottom()) info.flags |= TVHT_BELOW;
    if (point.x() < area.left()) info.flags |= TVHT_TOLEFT;
    if (point.x() > area.right()) info.flags |= TVHT_TORIGHT;
    if (info.flags) return 0;
    const QModelIndex index = face()->indexAt(point);
    const TreeNode* const node = m_model.nodeOf(index);
    info.flags = TVHT_NOWHERE;
    if (!node) return 0;
    info.hItem = node->handle;
    const bool isBefore = face()->isRightToLeft() ? point.x() > face()->visualRect(index).right()
                                                  : point.x() < face()->visualRect(index).left();
    info.flags = face()->isOnButton(point)                   ? TVHT_ONITEMBUTTON
                 : face()->rectOfMark(index).contains(point) ? TVHT_ONITEMSTATEICON
                 : face()->rectOfIcon(index).contains(point) ? TVHT_ONITEMICON
                 : face()->rectOfText(index).contains(point) ? TVHT_ONITEMLABEL
                 : isBefore                                  ? TVHT_ONITEMINDENT
                                                             : TVHT_ONITEMRIGHT;
    return reinterpret_cast<LRESULT>(node->handle);
}

void TreeView::keyPressed(WORD key)
{
    NMTVKEYDOWN told{};
    told.wVKey = key;
    notifyParent(told.hdr, TVN_KEYDOWN);
}

void TreeView::activated(Click click)
{
    const TreeNode* const node = m_model.nodeOf(face()->currentIndex());
    if (click == Click::doubleLeft && node) expand(node->handle, TVE_TOGGLE, true);
}

QString TreeView::askText(const TreeNode& node)
{
    char room[textRoom] = {};
    NMTVDISPINFOA info{};
    info.item = describe(node);
    info.item.mask = TVIF_TEXT | TVIF_HANDLE | TVIF_PARAM;
    info.item.pszText = room;
    info.item.cchTextMax = textRoom;
    notifyParent(info.hdr, TVN_GETDISPINFO);
    return textFrom(info.item.pszText);
}

bool TreeView::askChildren(const TreeNode& node)
{
    NMTVDISPINFOA info{};
    info.item.mask = TVIF_CHILDREN | TVIF_HANDLE | TVIF_PARAM;
    info.item.hItem = node.handle;
    info.item.lParam = node.data;
    notifyParent(info.hdr, TVN_GETDISPINFO);
    return info.item.cChildren > 0;
}

int TreeView::askImage(const TreeNode& node, bool isSelected)
{
    NMTVDISPINFOA info{};
    info.item = describe(node);
    info.item.mask = (isSelected ? TVIF_SELECTEDIMAGE : TVIF_IMAGE) | TVIF_HANDLE | TVIF_PARAM;
    notifyParent(info.hdr, TVN_GETDISPINFO);
    return isSelected ? info.item.iSelectedImage : info.item.iImage;
}

QVariant TreeView::iconOf(const TreeNode& node)
{
    const UINT stateImage = node.state >> 12 & 0xF;
    if (m_stateImages && stateImage && !m_model.showsMarks)
        return iconFrom(m_stateImages, static_cast<int>(stateImage));
    if (!m_images) return {};
    const bool isSelected = m_model.nodeOf(face()->currentIndex()) == &node;
    const int image = isSelected ? node.selectedImage : node.image;
    return iconFrom(m_images, image == I_IMAGECALLBACK ? askImage(node, isSelected) : image);
}

} // namespace

std::unique_ptr<Window> makeTreeView(const CREATESTRUCTA&, QWidget* parent)
{
    return std::make_unique<TreeView>(parent);
}

} // namespace corekit::detail
