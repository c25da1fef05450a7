// Builds chains of host values link by link.
#include "module/value_chain.h"

void ValueChain::appendText(int type, const std::wstring& text) {
  if (resbuf* link = append(type)) link->resval.rstring = acutNewString(text.c_str());
}

void ValueChain::appendShort(int type, std::int16_t value) {
  if (resbuf* link = append(type)) link->resval.rint = value;
}

void ValueChain::appendPoint(int type, const AcGePoint3d& point) {
  resbuf* link = append(type);
  if (!link) return;
  link->resval.rpoint[0] = point.x;
  link->resval.rpoint[1] = point.y;
  link->resval.rpoint[2] = point.z;
}

resbuf* ValueChain::append(int type) {
  resbuf* link = acutNewRb(type);
  if (!link) return nullptr;
  (tail_ ? tail_->rbnext : head_) = link;
  tail_ = link;
  return link;
}
