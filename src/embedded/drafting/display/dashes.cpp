#include "embedded/drafting/display/dashes.h"

#include <algorithm>
#include <cmath>

namespace drafting {
namespace {

constexpr double kMostDashes = 20000;  // of one way

class Cutter {
 public:
  Cutter(std::span<const Station> way, const std::function<void(std::span<const Station>)>& put)
      : way_(way), put_(put) {}

  void run(const DashPattern& pattern) {
    const double whole = wholeLength(), repeats = std::floor(whole / pattern.length);
    const auto each = static_cast<double>(pattern.dashes.size());
    if (!(repeats >= 1 && repeats * each <= kMostDashes)) return put_(way_);
    const double first = pattern.dashes[0];
    const double part = first > 0 ? (whole - repeats * pattern.length + first) / 2 : 0;
    if (first > 0) dash(0, part);
    // What the reckoning's own error leaves before the last part is no dash.
    const double end = (whole - part) * (1 - 1e-12);
    double from = part;
    for (std::size_t at = first > 0 ? 1 : 0; from < end; ++at) {
      const double size = pattern.dashes[at % pattern.dashes.size()];
      const double to = std::min(from + std::abs(size), whole);
      if (size >= 0) dash(from, to);
      from = to;
    }
    if (first > 0) dash(whole - part, whole);
  }

 private:
  double wholeLength() const {
    double length = 0;
    for (std::size_t i = 1; i < way_.size(); ++i) {
      length += base::distance(way_[i - 1].point, way_[i].point);
    }
    return length;
  }

  // The part between two distances from the start; dashes come in ascending order.
  void dash(double from, double to) {
    piece_.clear();
    advance(from);
    piece_.push_back(stationAt(from));
    while (next_ < way_.size() && passed_ + leg_ < to) {
      piece_.push_back(way_[next_]);
      advanceOne();
    }
    if (to > from) piece_.push_back(stationAt(to));
    put_(piece_);
  }

  // Until `distance` lies between the stations next_ - 1 and next_.
  void advance(double distance) {
    if (next_ == 0) advanceOne();
    while (next_ + 1 < way_.size() && passed_ + leg_ <= distance) advanceOne();
  }
  void advanceOne() {
    passed_ += leg_;
    ++next_;
    leg_ = next_ < way_.size() ? base::distance(way_[next_ - 1].point, way_[next_].point) : 0;
  }
  Station stationAt(double distance) const {
    if (next_ >= way_.size()) return way_.back();
    const Station &a = way_[next_ - 1], &b = way_[next_];
    const double part = leg_ > 0 ? std::clamp((distance - passed_) / leg_, 0.0, 1.0) : 0;
    return {a.point + (b.point - a.point) * part, a.half + (b.half - a.half) * part};
  }

  std::span<const Station> way_;
  const std::function<void(std::span<const Station>)>& put_;
  std::size_t next_ = 0;
  double passed_ = 0, leg_ = 0;  // length up to the station before next_, and from it to next_
  std::vector<Station> piece_;
};

}  // namespace

void DashPattern::set(const Linetype& linetype, double scale) {
  dashes.clear();
  length = 0;
  for (const Linetype::Dash& dash : linetype.dashes) {
    dashes.push_back(dash.length * scale);
    length += std::abs(dashes.back());
  }
  const bool hasGap = std::any_of(dashes.begin(), dashes.end(), [](double d) { return d < 0; });
  if (!(length > 0 && std::isfinite(length) && hasGap)) dashes.clear();
}

void cutIntoDashes(std::span<const Station> way, const DashPattern& pattern,
                   const std::function<void(std::span<const Station>)>& put) {
  if (pattern.isContinuous() || way.size() < 2) return put(way);
  Cutter(way, put).run(pattern);
}

}  // namespace drafting
