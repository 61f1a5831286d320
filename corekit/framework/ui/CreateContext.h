// What a frame tells the windows that it makes for a document.
#pragma once

class CDocument;
class CFrameWnd;
struct CRuntimeClass;

struct CCreateContext {
    CRuntimeClass* m_pNewViewClass = nullptr;
    CDocument* m_pCurrentDoc = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};
