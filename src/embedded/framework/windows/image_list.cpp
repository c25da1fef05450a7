// Image lists over the system's handles.
#include "platform/framework_image_list.h"
#include "platform/framework_resources.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

CImageList::~CImageList() { DeleteImageList(); }

BOOL CImageList::Attach(HIMAGELIST list) {
  if (!list || m_hImageList) return FALSE;
  m_hImageList = list;
  return TRUE;
}
HIMAGELIST CImageList::Detach() {
  const HIMAGELIST list = m_hImageList;
  m_hImageList = nullptr;
  return list;
}
BOOL CImageList::DeleteImageList() {
  const HIMAGELIST list = Detach();
  return list ? ::ImageList_Destroy(list) : FALSE;
}

BOOL CImageList::Create(int width, int height, UINT flags, int initial, int grow) {
  return Attach(::ImageList_Create(width, height, flags, initial, grow));
}
BOOL CImageList::Create(UINT bitmapId, int width, int grow, COLORREF mask) {
  const wchar_t* name = MAKEINTRESOURCEW(bitmapId);
  return Attach(::ImageList_LoadImageW(AfxFindResourceHandle(name, RT_BITMAP), name, width, grow,
                                       mask, IMAGE_BITMAP, 0));
}

int CImageList::GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
int CImageList::Add(CBitmap* bitmap, COLORREF mask) {
  return ::ImageList_AddMasked(m_hImageList, *bitmap, mask);
}
int CImageList::Add(CBitmap* bitmap, CBitmap* maskBitmap) {
  return ::ImageList_Add(m_hImageList, *bitmap,
                         maskBitmap ? static_cast<HBITMAP>(*maskBitmap) : nullptr);
}
BOOL CImageList::Remove(int index) { return ::ImageList_Remove(m_hImageList, index); }
COLORREF CImageList::SetBkColor(COLORREF colour) {
  return ::ImageList_SetBkColor(m_hImageList, colour);
}
BOOL CImageList::GetImageInfo(int index, IMAGEINFO* info) const {
  return ::ImageList_GetImageInfo(m_hImageList, index, info);
}
HICON CImageList::ExtractIcon(int index) const {
  return ::ImageList_GetIcon(m_hImageList, index, ILD_NORMAL);
}
BOOL CImageList::Draw(HDC dc, int index, POINT at, UINT style) const {
  return ::ImageList_Draw(m_hImageList, index, dc, at.x, at.y, style);
}
