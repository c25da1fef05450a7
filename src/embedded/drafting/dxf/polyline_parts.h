// A POLYLINE with its VERTEX entities, as old files have them, on its way to one LWPOLYLINE.
#pragma once

#include <memory>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/dxf/group_section.h"

namespace drafting {

class PolylineParts {
 public:
  // `line` has the common data of the POLYLINE.
  PolylineParts(std::unique_ptr<LwPolyline> line, GroupSection groups);

  // False for meshes and lines in space, which an LWPOLYLINE can't hold.
  bool isFlat() const { return isFlat_; }
  void addVertex(GroupSection groups);
  std::unique_ptr<LwPolyline> finish();

 private:
  std::unique_ptr<LwPolyline> line_;
  LwPolyline::Width usual_;
  bool isFlat_ = true;
};

}  // namespace drafting
