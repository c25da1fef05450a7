// Device contexts. A context owns the handle that it made or that was attached to it. Objects are
// selected, never owned: put the old object back before the new one is deleted. What SelectObject
// returns lasts until the next idle time.
#pragma once

#include "platform/framework_gdi.h"
#include "platform/framework_text.h"

class CDC : public CObject {
  DECLARE_DYNCREATE(CDC)

 public:
  CDC() = default;
  ~CDC() override;

  // --- handle ---
  HDC GetSafeHdc() const { return m_hDC; }
  operator HDC() const { return m_hDC; }
  BOOL Attach(HDC dc);
  HDC Detach();
  BOOL CreateCompatibleDC(CDC* dc);  // a null dc means the screen
  BOOL DeleteDC();
  static CDC* FromHandle(HDC dc);
  int GetDeviceCaps(int index) const;

  // --- state ---
  int SaveDC();
  BOOL RestoreDC(int saved);
  CPen* SelectObject(CPen* pen);
  CBrush* SelectObject(CBrush* brush);
  CFont* SelectObject(CFont* font);
  CBitmap* SelectObject(CBitmap* bitmap);
  int SelectObject(CRgn* region);  // as the clipping region
  CGdiObject* SelectStockObject(int index);
  COLORREF SetTextColor(COLORREF colour);
  COLORREF GetTextColor() const;
  COLORREF SetBkColor(COLORREF colour);
  COLORREF GetBkColor() const;
  int SetBkMode(int mode);
  int GetBkMode() const;
  int SetROP2(int mode);
  UINT SetTextAlign(UINT flags);
  int SetStretchBltMode(int mode);

  // --- co-ordinates ---
  int SetMapMode(int mode);
  POINT SetViewportOrg(int x, int y);  // the old origin
  POINT GetViewportOrg() const;
  POINT SetWindowOrg(int x, int y);
  void DPtoLP(POINT* points, int count = 1) const;
  void LPtoDP(POINT* points, int count = 1) const;

  // --- clipping ---
  int GetClipBox(RECT* rect) const;
  int SelectClipRgn(CRgn* region);  // null: no clipping
  int ExcludeClipRect(const RECT* rect);
  int IntersectClipRect(const RECT* rect);
  BOOL RectVisible(const RECT* rect) const;

  // --- lines and areas ---
  POINT MoveTo(int x, int y);  // the old position
  BOOL LineTo(int x, int y);
  BOOL Polyline(const POINT* points, int count);
  BOOL PolyPolyline(const POINT* points, const DWORD* counts, int lines);
  BOOL Polygon(const POINT* points, int count);
  BOOL Rectangle(const RECT* rect);
  BOOL Ellipse(const RECT* rect);
  void FillRect(const RECT* rect, CBrush* brush);
  void FrameRect(const RECT* rect, CBrush* brush);
  void InvertRect(const RECT* rect);
  // These two leave the background colour as it was.
  void FillSolidRect(const RECT* rect, COLORREF colour);
  void FillSolidRect(int x, int y, int width, int height, COLORREF colour);
  // One pixel wide, inside of the rectangle; the corners at top right and bottom left belong to the
  // second colour.
  void Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight);
  void Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight);
  BOOL DrawEdge(const RECT* rect, UINT edge, UINT flags);
  BOOL DrawFrameControl(const RECT* rect, UINT type, UINT state);
  void DrawFocusRect(const RECT* rect);

  // --- pixels ---
  BOOL PatBlt(int x, int y, int width, int height, DWORD operation);
  BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
              DWORD operation);
  BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                  int sourceWidth, int sourceHeight, DWORD operation);
  COLORREF GetPixel(int x, int y) const;
  COLORREF SetPixel(int x, int y, COLORREF colour);

  // --- text ---
  BOOL TextOut(int x, int y, const CString& text);
  int DrawText(const CString& text, RECT* rect, UINT format);  // the text's height
  SIZE GetTextExtent(const CString& text) const;
  BOOL GetTextMetrics(TEXTMETRICW* metrics) const;

  HDC m_hDC = nullptr;

 protected:
  // Gives the handle back to where it came from; a context of a window isn't deleted.
  virtual void Release();
};
