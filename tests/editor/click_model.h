// The clicks once more, slowly, on a plain list of blocks: for comparing with the real ones. It
// knows the lattice as a table of its own and no tree.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/framework_shapes.h"

namespace test {

struct ModelBlock {
  std::wstring name;
  RECT cell{};
  std::wstring specification;
  std::wstring x;
  std::wstring y;
};

class ClickModel {
 public:
  std::vector<ModelBlock> blocks;
  POINT origin{};

  std::optional<RECT> leftClick(int x, int y, std::wstring pick);
  std::optional<RECT> rightClick(int x, int y);

 private:
  // The block's index and whether it was hit; a miss gives the last one.
  std::pair<int, bool> find(int x, int y) const;
  RECT splitIntoThree(int index, const std::wstring& name);
  void nameNeighbour(int x, int y, const std::wstring& name);
  ModelBlock appended(int x, int y) const;
};

}  // namespace test
