// What a frame tells the windows that it makes for a document.
//
// It goes as the parameter of creation to the view and its windows, and need not outlive that. All pointers
// may be null; none is owned.
#pragma once

class CDocument;
class CFrameWnd;
struct CRuntimeClass;

struct CCreateContext {
    CRuntimeClass* m_pNewViewClass = nullptr; // class of the view, made by CFrameWnd::CreateView
    CDocument* m_pCurrentDoc = nullptr;       // the document that the view joins
    CFrameWnd* m_pCurrentFrame = nullptr;     // the frame that a new one is modelled on; not used here
};
