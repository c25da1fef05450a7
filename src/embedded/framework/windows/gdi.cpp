// Graphics objects over the system's handles.
#include "embedded/framework/windows/handle_map.h"
#include "embedded/framework/windows/temporary.h"
#include "platform/framework_dc.h"
#include "platform/framework_gdi.h"
#include "platform/framework_resources.h"

namespace {

framework::HandleMap<CGdiObject, HGDIOBJ>& objects() {
  static framework::HandleMap<CGdiObject, HGDIOBJ> map;
  [[maybe_unused]] static const bool registered = framework::addTemporaryKind(
      [] { objects().deleteTemporary([](CGdiObject& object) { object.m_hObject = nullptr; }); });
  return map;
}

template <typename Object>
Object* objectOf(HGDIOBJ handle) {
  return objects().find<Object>(
      handle, [](CGdiObject& object, HGDIOBJ assigned) { object.m_hObject = assigned; });
}

}  // namespace

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

CGdiObject::~CGdiObject() { DeleteObject(); }

BOOL CGdiObject::Attach(HGDIOBJ object) {
  if (!object || m_hObject) return FALSE;
  m_hObject = object;
  objects().add(object, this);
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  const HGDIOBJ object = m_hObject;
  if (object) objects().remove(object);
  m_hObject = nullptr;
  return object;
}

BOOL CGdiObject::DeleteObject() {
  const HGDIOBJ object = Detach();
  return object ? ::DeleteObject(object) : FALSE;
}

int CGdiObject::GetObject(int count, void* object) const {
  return ::GetObjectW(m_hObject, count, object);
}

BOOL CGdiObject::CreateStockObject(int index) { return Attach(::GetStockObject(index)); }

CGdiObject* CGdiObject::FromHandle(HGDIOBJ object) { return objectOf<CGdiObject>(object); }

// --- pens and brushes ---

CPen::CPen(int style, int width, COLORREF colour) { CreatePen(style, width, colour); }
BOOL CPen::CreatePen(int style, int width, COLORREF colour) {
  return Attach(::CreatePen(style, width, colour));
}
CPen* CPen::FromHandle(HPEN pen) { return objectOf<CPen>(pen); }

CBrush::CBrush(COLORREF colour) { CreateSolidBrush(colour); }
BOOL CBrush::CreateSolidBrush(COLORREF colour) { return Attach(::CreateSolidBrush(colour)); }
BOOL CBrush::CreateSysColorBrush(int index) {
  // The system's own brush is shared; this one can be deleted.
  return CreateSolidBrush(::GetSysColor(index));
}
CBrush* CBrush::FromHandle(HBRUSH brush) { return objectOf<CBrush>(brush); }

// --- fonts, bitmaps, regions ---

BOOL CFont::CreateFontIndirect(const LOGFONTW* font) { return Attach(::CreateFontIndirectW(font)); }
int CFont::GetLogFont(LOGFONTW* font) const { return GetObject(sizeof *font, font); }
CFont* CFont::FromHandle(HFONT font) { return objectOf<CFont>(font); }

BOOL CBitmap::CreateCompatibleBitmap(const CDC* dc, int width, int height) {
  return Attach(::CreateCompatibleBitmap(dc->m_hDC, width, height));
}
BOOL CBitmap::LoadBitmap(UINT id) {
  const wchar_t* name = MAKEINTRESOURCEW(id);
  const HINSTANCE module = AfxFindResourceHandle(name, RT_BITMAP);
  return Attach(::LoadBitmapW(module, name));
}
int CBitmap::GetBitmap(BITMAP* bitmap) const { return GetObject(sizeof *bitmap, bitmap); }
CBitmap* CBitmap::FromHandle(HBITMAP bitmap) { return objectOf<CBitmap>(bitmap); }

BOOL CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
  return Attach(::CreateRectRgn(left, top, right, bottom));
}
BOOL CRgn::CreateRectRgnIndirect(const RECT* rect) { return Attach(::CreateRectRgnIndirect(rect)); }
int CRgn::CombineRgn(const CRgn* first, const CRgn* second, int mode) {
  return ::CombineRgn(*this, *first, second ? static_cast<HRGN>(*second) : nullptr, mode);
}
CRgn* CRgn::FromHandle(HRGN region) { return objectOf<CRgn>(region); }
