// The bar's measure on the screen: its image lists and the system's font for windows.
#pragma once

#include "controls/bar_layout.h"
#include "platform/framework_dc.h"
#include "platform/framework_window.h"

class ScreenMeasure : public BarMeasure {
 public:
  // Both outlive the measure.
  ScreenMeasure(CWnd& bar, const BarFolders& folders) : bar_(bar), folders_(folders) {}

  SIZE icon(int folder, int image, bool smallView) const override;
  SIZE line(const std::wstring& text) const override;
  SIZE wrapped(const std::wstring& text, int width) const override;

 private:
  // With the font; made at the first use, since asking the system for the window's own each time
  // takes longer than measuring.
  CDC& context() const;

  CWnd& bar_;
  const BarFolders& folders_;
  mutable CDC context_;
};
