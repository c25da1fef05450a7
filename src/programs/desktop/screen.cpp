#include "programs/desktop/screen.h"

#include <algorithm>

namespace desktop {

using drafting::Kind;

namespace {

// Breaks lines into dashes of the background's colour, so that what lies below shows dashed.
class Dashes : public base::Canvas {
 public:
  explicit Dashes(base::Canvas& canvas) : canvas_(canvas) {}

  void stroke(std::span<const Point2> points, base::Rgb, double width) override {
    double along = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
      dash(points[i - 1], points[i], along, std::max(width, 1.0));
      along += base::distance(points[i - 1], points[i]);
    }
  }
  void fill(std::span<const Point2>, base::Rgb) override {}

 private:
  static constexpr double kPeriod = 8, kGap = 4;  // pixels
  static constexpr double kLongest = 20000;       // a line that leaves the screen far behind

  void dash(Point2 from, Point2 to, double along, double width) {
    const double all = base::distance(from, to);
    if (all == 0 || all > kLongest) return;
    for (double start = std::floor(along / kPeriod) * kPeriod; start < along + all;
         start += kPeriod) {
      const double first = std::max(start, along) - along;
      const double last = std::min(start + kGap, along + all) - along;
      if (last <= first) continue;
      const Point2 step = (to - from) * (1 / all);
      const Point2 gap[] = {from + step * first, from + step * last};
      canvas_.stroke(gap, {0, 0, 0}, width);
    }
  }

  base::Canvas& canvas_;
};

const drafting::PaintStyle& screenStyle() {
  static const drafting::PaintStyle style{drafting::Palette(drafting::Background::Black, false),
                                          1 / 0.28, 1};
  return style;
}

bool givesLooks(Kind kind) {
  return kind == Kind::Layer || kind == Kind::TextStyle || kind == Kind::Linetype ||
         kind == Kind::BlockRecord;
}

}  // namespace

Screen::Screen(drafting::Session& session) : session_(session) {
  session_.leaving = [this] { watch(nullptr); };
}

Screen::~Screen() {
  session_.leaving = [] {};
  watch(nullptr);
}

void Screen::watch(drafting::Database* database) {
  if (watched_ == database) return;
  if (watched_) watched_->removeWatcher(*this);
  watched_ = database;
  if (watched_) watched_->addWatcher(*this);
  stale_ = true;
}

void Screen::resize(int width, int height) {
  width = std::max(width, 1);
  height = std::max(height, 1);
  if (width == bitmap_.width() && height == bitmap_.height()) return;
  bitmap_ = drafting::ScreenBitmap(width, height);
  session_.view.setScreenSize({static_cast<double>(width), static_cast<double>(height)});
  dirty_ = true;
}

// What stands on a record that came since the last look comes to be shown by its own change.
void Screen::note(const drafting::Object& record) {
  if (&record != &watched_->modelSpace() && record.handle < firstNew_) stale_ = true;
}

void Screen::touched(const drafting::Object& object) {
  dirty_ = true;
  if (stale_) return;
  if (givesLooks(object.kind)) {
    note(object);
  } else if (drafting::isEntity(object.kind)) {
    const drafting::Object* owner = watched_->find(object.owner);
    const bool inBlock = owner && owner->kind == Kind::BlockRecord;
    if (inBlock && owner != &watched_->modelSpace()) {
      note(*owner);
    } else {
      if (!inBlock) changed_.push_back(object.owner);  // an attribute counts as its INSERT
      changed_.push_back(object.handle);
    }
  }
}

void Screen::rebuild() {
  ++rebuilds_;
  stale_ = false;
  picture_ = drafting::ScreenPicture(session_.document().display());
  picture_.rebuild(*watched_);
}

void Screen::followDrawing() {
  watch(&session_.database());
  if (stale_) {
    rebuild();
  } else if (!changed_.empty()) {
    picture_.update(*watched_, changed_);
  }
  changed_.clear();
  firstNew_ = watched_->nextHandle();
}

bool Screen::refresh(const Selection& selected) {
  watch(&session_.database());
  if (stale_) dirty_ = true;
  const base::Box2 window = session_.view.window();
  const bool moved = window.min != shownWindow_.min || window.max != shownWindow_.max;
  const bool reselected = selected != selected_;
  if (!dirty_ && !moved && !reselected) return false;
  if (dirty_) followDrawing();
  if (dirty_ || reselected) {
    selected_ = selected;
    selectedPicture_ = drafting::ScreenPicture(session_.document().display());
    if (!selected_.empty()) selectedPicture_.update(*watched_, selected_);
  }
  dirty_ = false;
  shownWindow_ = window;
  draw();
  return true;
}

base::Affine2 Screen::map() const {
  const double scale = 1 / session_.view.unitsPerPixel();
  const Point2 corner = session_.view.window().min;
  return {scale, 0, 0, scale, -corner.x * scale, -corner.y * scale};
}

void Screen::draw() {
  bitmap_.clear({0, 0, 0});
  base::Box2 whole;
  whole.add(Point2{0, 0});
  whole.add(session_.view.screenSize());
  picture_.draw(map(), whole, screenStyle(), bitmap_);
  if (selected_.empty()) return;
  Dashes dashes(bitmap_);
  selectedPicture_.draw(map(), whole, screenStyle(), dashes);
}

Point2 Screen::drawingPoint(Pixel pixel) const {
  const double size = session_.view.unitsPerPixel();
  const base::Box2 window = session_.view.window();
  return {window.min.x + (pixel.x + 0.5) * size, window.max.y - (pixel.y + 0.5) * size};
}

Point2 Screen::pixelPoint(Point2 point) const {
  const double size = session_.view.unitsPerPixel();
  const base::Box2 window = session_.view.window();
  return {(point.x - window.min.x) / size - 0.5, (window.max.y - point.y) / size - 0.5};
}

}  // namespace desktop
