// Graphics objects. An object owns the handle that it made or that was attached to it, and deletes
// it with itself; one that FromHandle gives owns nothing and lasts until the next idle time.
// A handle must not be deleted while a device context has it selected.
#pragma once

#include "platform/framework_objects.h"
#include "platform/framework_system.h"

class CGdiObject : public CObject {
  DECLARE_DYNCREATE(CGdiObject)

 public:
  CGdiObject() = default;
  ~CGdiObject() override;

  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  // Takes the handle over. False for null; an object that has a handle already is refused.
  BOOL Attach(HGDIOBJ object);
  HGDIOBJ Detach();  // the handle is the caller's from here on
  BOOL DeleteObject();
  int GetObject(int count, void* object) const;  // bytes written
  BOOL CreateStockObject(int index);             // the system's, never really deleted
  static CGdiObject* FromHandle(HGDIOBJ object);

  HGDIOBJ m_hObject = nullptr;
};

class CPen : public CGdiObject {
  DECLARE_DYNAMIC(CPen)

 public:
  CPen() = default;
  CPen(int style, int width, COLORREF colour);
  BOOL CreatePen(int style, int width, COLORREF colour);
  operator HPEN() const { return static_cast<HPEN>(m_hObject); }
  static CPen* FromHandle(HPEN pen);
};

class CBrush : public CGdiObject {
  DECLARE_DYNAMIC(CBrush)

 public:
  CBrush() = default;
  explicit CBrush(COLORREF colour);
  BOOL CreateSolidBrush(COLORREF colour);
  BOOL CreateSysColorBrush(int index);
  operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
  static CBrush* FromHandle(HBRUSH brush);
};

class CFont : public CGdiObject {
  DECLARE_DYNAMIC(CFont)

 public:
  BOOL CreateFontIndirect(const LOGFONTW* font);
  int GetLogFont(LOGFONTW* font) const;  // bytes written
  operator HFONT() const { return static_cast<HFONT>(m_hObject); }
  static CFont* FromHandle(HFONT font);
};

class CDC;

class CBitmap : public CGdiObject {
  DECLARE_DYNAMIC(CBitmap)

 public:
  BOOL CreateCompatibleBitmap(const CDC* dc, int width, int height);
  BOOL LoadBitmap(UINT id);  // from the modules' resources
  int GetBitmap(BITMAP* bitmap) const;
  operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
  static CBitmap* FromHandle(HBITMAP bitmap);
};

class CRgn : public CGdiObject {
  DECLARE_DYNAMIC(CRgn)

 public:
  BOOL CreateRectRgn(int left, int top, int right, int bottom);
  BOOL CreateRectRgnIndirect(const RECT* rect);
  int CombineRgn(const CRgn* first, const CRgn* second, int mode);
  operator HRGN() const { return static_cast<HRGN>(m_hObject); }
  static CRgn* FromHandle(HRGN region);
};
