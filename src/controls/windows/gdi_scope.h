// Selections into device contexts that end with a scope, and a picture in memory to draw into.
#pragma once

#include "platform/framework_dc.h"

class SelectedObject {
 public:
  SelectedObject(const CDC& dc, HGDIOBJ object)
      : dc_(dc.GetSafeHdc()), before_(::SelectObject(dc_, object)) {}
  ~SelectedObject() { ::SelectObject(dc_, before_); }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

// Puts back all that is set in the context during the scope.
class SavedContext {
 public:
  explicit SavedContext(CDC& dc) : dc_(dc), saved_(dc.SaveDC()) {}
  ~SavedContext() { dc_.RestoreDC(saved_); }
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;

 private:
  CDC& dc_;
  int saved_;
};

class MemoryPicture {
 public:
  MemoryPicture(CDC& like, int width, int height) {
    dc.CreateCompatibleDC(&like);
    bitmap_.CreateCompatibleBitmap(&like, width, height);
    before_ = ::SelectObject(dc.GetSafeHdc(), bitmap_.GetSafeHandle());
  }
  ~MemoryPicture() { ::SelectObject(dc.GetSafeHdc(), before_); }
  MemoryPicture(const MemoryPicture&) = delete;
  MemoryPicture& operator=(const MemoryPicture&) = delete;

 private:
  CBitmap bitmap_;  // outlives the context that has it selected

 public:
  CDC dc;

 private:
  HGDIOBJ before_ = nullptr;
};
