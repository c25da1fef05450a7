// Image lists. An object owns the list that it made or that was attached to it.
#pragma once

#include "platform/framework_gdi.h"

class CImageList : public CObject {
  DECLARE_DYNCREATE(CImageList)

 public:
  CImageList() = default;
  ~CImageList() override;

  HIMAGELIST GetSafeHandle() const { return m_hImageList; }
  operator HIMAGELIST() const { return m_hImageList; }
  BOOL Create(int width, int height, UINT flags, int initial, int grow);
  // Cells of a bitmap of the modules' resources; pixels of the mask colour are transparent.
  BOOL Create(UINT bitmapId, int width, int grow, COLORREF mask);
  BOOL Attach(HIMAGELIST list);
  HIMAGELIST Detach();
  BOOL DeleteImageList();

  int GetImageCount() const;
  int Add(CBitmap* bitmap, COLORREF mask);        // the first new index, or -1
  int Add(CBitmap* bitmap, CBitmap* maskBitmap);  // the same; the mask may be null
  BOOL Remove(int index);
  COLORREF SetBkColor(COLORREF colour);
  BOOL GetImageInfo(int index, IMAGEINFO* info) const;
  HICON ExtractIcon(int index) const;  // the caller's, to be destroyed
  BOOL Draw(HDC dc, int index, POINT at, UINT style) const;

  HIMAGELIST m_hImageList = nullptr;
};
