#include "controls/folder_slide.h"

namespace {

template <typename Number>
int whole(Number value) {
  return static_cast<int>(value);
}

// A page a header higher with each step; the source rows are meant as they are.
std::vector<SlideStep> slideUp(int fromTop, int insideBottom, int header) {
  std::vector<SlideStep> steps;
  for (int y = fromTop + 1; y < insideBottom - header; y += header) {
    const SlideCopy opening{true, fromTop, y - fromTop - 1, 2 * header};
    const SlideCopy closing{false, y, insideBottom - y, 0};
    steps.push_back({{opening, closing}});
  }
  return steps;
}

std::vector<SlideStep> slideDown(int fromBottom, int toTop, int insideBottom, int header) {
  std::vector<SlideStep> steps;
  for (int y = toTop - header; y > fromBottom; y -= header) {
    const SlideCopy closing{false, fromBottom + 1, y - fromBottom - 1, header};
    const SlideCopy opening{true, y, insideBottom - y + header, 0};
    steps.push_back({{closing, opening}});
  }
  return steps;
}

}  // namespace

std::vector<SlideStep> folderSlide(const BarLayout& layout, int from, int to) {
  RECT closing{};
  RECT opening{};
  layout.GetFolderRect(from, closing);
  layout.GetFolderRect(to, opening);
  const int header = whole(closing.bottom - closing.top);
  const int bottom = whole(layout.GetInsideRect().bottom);
  if (to > from) return slideDown(whole(closing.bottom), whole(opening.top), bottom, header);
  return slideUp(whole(closing.top), bottom, header);
}
