#include "corekit/framework/ui/Document.h"

#include "corekit/framework/ui/View.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

CDocument::~CDocument()
{
    for (CView* const view : m_views) view->m_pDocument = nullptr;
}

void CDocument::AddView(CView* view)
{
    if (std::ranges::find(m_views, view) != m_views.end()) return;
    m_views.push_back(view);
    view->m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view)
{
    if (std::erase(m_views, view) == 0) return;
    view->m_pDocument = nullptr;
    OnChangedViewList();
}

// A position is the number of the view, counted from 1.
POSITION CDocument::GetFirstViewPosition() const
{
    return m_views.empty() ? nullptr : reinterpret_cast<POSITION>(std::size_t{1});
}

CView* CDocument::GetNextView(POSITION& position) const
{
    const auto number = reinterpret_cast<std::size_t>(position);
    if (number == 0 || number > m_views.size()) {
        position = nullptr;
        return nullptr;
    }
    position = number < m_views.size() ? reinterpret_cast<POSITION>(number + 1) : nullptr;
    return m_views[number - 1];
}

void CDocument::UpdateAllViews(CView* sender, LPARAM hint, CObject* what)
{
    const std::vector<CView*> views = m_views; // an update may close one
    for (CView* const view : views)
        if (view != sender && std::ranges::find(m_views, view) != m_views.end())
            view->OnUpdate(sender, hint, what);
}
