#include "corekit/framework/ui/Document.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CDocument, CCmdTarget)

CDocument::~CDocument()
{
    for (const Listed& each : m_views) each.seen->m_pDocument = nullptr;
}

bool CDocument::Lists(const CView* view) const
{
    return std::ranges::find(m_views, view, &Listed::view) != m_views.end();
}

void CDocument::Enlist(CView* view, corekit::detail::DocumentViewer& seen)
{
    if (Lists(view)) return;
    m_views.push_back({view, &seen});
    seen.m_pDocument = this;
    OnChangedViewList();
}

void CDocument::RemoveView(CView* view)
{
    const auto listed = std::ranges::find(m_views, view, &Listed::view);
    if (listed == m_views.end()) return;
    listed->seen->m_pDocument = nullptr;
    m_views.erase(listed);
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
    return m_views[number - 1].view;
}

void CDocument::UpdateAllViews(CView* sender, LPARAM hint, CObject* what)
{
    const std::vector<Listed> views = m_views; // an update may close one
    for (const Listed& each : views)
        if (each.view != sender && Lists(each.view)) each.seen->OnUpdate(sender, hint, what);
}
