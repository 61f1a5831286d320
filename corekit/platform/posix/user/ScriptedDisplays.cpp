#include "corekit/platform/ScriptedDisplays.h"

ScriptedDisplays::ScriptedDisplays() = default;
ScriptedDisplays::~ScriptedDisplays() = default;

// Counts its users and itself among the objects of the script.
template <typename... Interfaces>
class ScriptedDisplays::Object : public Interfaces... {
public:
    explicit Object(ScriptedDisplays& owner) : m_owner(owner) { ++m_owner.m_objects; }
    ~Object() override { --m_owner.m_objects; }
    DWORD AddRef() override { return ++m_users; }
    DWORD Release() override
    {
        const DWORD left = --m_users;
        if (left == 0) delete this;
        return left;
    }

protected:
    ScriptedDisplays& m_owner;

private:
    DWORD m_users = 1;
};

class ScriptedDisplays::Palette final : public Object<IDirectDrawPalette> {
public:
    using Object::Object;
    HRESULT QueryInterface(const GUID&, void** out) override { return *out = nullptr, E_NOINTERFACE; }
};

class ScriptedDisplays::Surface final : public Object<IDirectDrawSurface, IDirectDrawSurface3> {
public:
    using Object::Object;
    HRESULT QueryInterface(const GUID& id, void** out) override
    {
        *out = nullptr;
        const HRESULT result = m_owner.Note("QueryInterface");
        if (FAILED(result)) return result;
        if (id != IID_IDirectDrawSurface3) return E_NOINTERFACE;
        *out = static_cast<IDirectDrawSurface3*>(this);
        AddRef();
        return S_OK;
    }
    HRESULT GetSurfaceDesc(DDSURFACEDESC* d) override { return m_owner.Note("GetSurfaceDesc", {d->dwSize}); }
    HRESULT GetAttachedSurface(const DWORD* caps, IDirectDrawSurface3** out) override
    {
        const HRESULT result = m_owner.Note("GetAttachedSurface", {*caps});
        *out = SUCCEEDED(result) ? new Surface(m_owner) : nullptr;
        return result;
    }
    HRESULT BltFast(DWORD x, DWORD y, IDirectDrawSurface3*, RECT*, DWORD flags) override
    {
        return m_owner.Note("BltFast", {x, y, flags});
    }
    HRESULT Blt(RECT* to, IDirectDrawSurface3*, RECT* part, DWORD flags, DDBLTFX* effects) override
    {
        m_owner.m_effects = *effects;
        return m_owner.Note("Blt", {to->left, to->top, to->right, to->bottom, part->left, part->top,
                                    part->right, part->bottom, flags});
    }
    HRESULT Flip(IDirectDrawSurface3*, DWORD flags) override { return m_owner.Note("Flip", {flags}); }
    HRESULT GetDC(HDC* dc) override
    {
        const HRESULT result = m_owner.Note("GetDC");
        *dc = SUCCEEDED(result) ? reinterpret_cast<HDC>(this) : nullptr;
        return result;
    }
    HRESULT ReleaseDC(HDC) override { return m_owner.Note("ReleaseDC"); }
    HRESULT SetPalette(IDirectDrawPalette*) override { return m_owner.Note("SetPalette"); }
    HRESULT Restore() override { return m_owner.Note("Restore"); }
};

class ScriptedDisplays::DirectDraw final : public Object<IDirectDraw2, IDirectDraw7> {
public:
    using Object::Object;
    HRESULT QueryInterface(const GUID& id, void** out) override
    {
        *out = nullptr;
        if (id == IID_IDirectDraw2) *out = static_cast<IDirectDraw2*>(this);
        if (id == IID_IDirectDraw7) *out = static_cast<IDirectDraw7*>(this);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    HRESULT Initialize(GUID* driver) override { return m_owner.Note("Initialize", {driver != nullptr}); }
    HRESULT SetCooperativeLevel(HWND, DWORD flags) override
    {
        return m_owner.Note("SetCooperativeLevel", {flags});
    }
    HRESULT SetDisplayMode(DWORD width, DWORD height, DWORD bits, DWORD refresh, DWORD flags) override
    {
        return m_owner.Note("SetDisplayMode", {width, height, bits, refresh, flags});
    }
    HRESULT CreateSurface(DDSURFACEDESC* description, IDirectDrawSurface** out, IUnknown*) override
    {
        m_owner.m_description = *description;
        const HRESULT result = m_owner.Note("CreateSurface");
        *out = SUCCEEDED(result) ? new Surface(m_owner) : nullptr;
        return result;
    }
    HRESULT CreatePalette(DWORD flags, PALETTEENTRY*, IDirectDrawPalette** out, IUnknown*) override
    {
        const HRESULT result = m_owner.Note("CreatePalette", {flags});
        *out = SUCCEEDED(result) ? new Palette(m_owner) : nullptr;
        return result;
    }
    HRESULT WaitForVerticalBlank(DWORD flags, HANDLE) override
    {
        return m_owner.Note("WaitForVerticalBlank", {flags});
    }
};

void ScriptedDisplays::Script(const std::string& call, std::initializer_list<HRESULT> results)
{
    m_scripts[call].insert(m_scripts[call].end(), results);
}

HRESULT ScriptedDisplays::Note(const std::string& call, std::initializer_list<long long> numbers)
{
    std::string text = call;
    for (const long long number : numbers) text += ' ' + std::to_string(number);
    m_calls.push_back(text);
    std::deque<HRESULT>& script = m_scripts[call];
    if (script.empty()) return S_OK;
    const HRESULT result = script.front();
    script.pop_front();
    return result;
}

HRESULT ScriptedDisplays::Create(const GUID& interfaceId, void** out)
{
    const HRESULT result = Note("Create");
    if (FAILED(result)) return result;
    auto* const object = new DirectDraw(*this);
    const HRESULT found = object->QueryInterface(interfaceId, out);
    object->Release();
    return found;
}

HRESULT ScriptedDisplays::Enumerate(LPDDENUMCALLBACKEXA callback, void* context, DWORD flags)
{
    const HRESULT result = Note("Enumerate", {flags});
    for (Display& d : m_displays)
        if (!callback(d.hasDriver ? &d.driver : nullptr, d.description.data(), d.name.data(), context,
                      nullptr))
            break;
    return result;
}
