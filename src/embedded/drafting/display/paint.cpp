// From a display list to a canvas.
#include <algorithm>

#include "embedded/drafting/display/display_list.h"

namespace drafting {

void paint(const DisplayList& list, const Affine2& map, const PaintStyle& style,
           base::Canvas& canvas) {
  std::vector<Point2> mapped;
  for (const DisplayList::Item& item : list.items()) {
    if (item.kind == DisplayList::Kind::Label) {
      const DisplayList::Label& label = list.label(item);
      canvas.words({label.text, map * label.place, label.advance});
      continue;
    }
    const auto points = list.points(item);
    mapped.resize(points.size());
    std::transform(points.begin(), points.end(), mapped.begin(), map);
    const base::Rgb colour = style.palette(item.colour);
    if (item.kind == DisplayList::Kind::Area) {
      canvas.fill(mapped, colour);
    } else {
      const double width = item.lineweight / 100.0 * style.unitsPerMillimetre;
      canvas.stroke(mapped, colour, std::max(width, style.thinnest));
    }
  }
}

}  // namespace drafting
