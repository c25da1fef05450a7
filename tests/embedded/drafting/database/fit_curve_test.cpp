// The curve through a spline's fit points as control points, and control points that repeat it.
#include "embedded/drafting/database/fit_curve.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

Spline spline() {
  Spline spline;
  spline.fitPoints = {{0, 0, 0}, {3, 4, 1}, {3, 4, 1}, {7, -1, 2}, {12, 2, 0}};
  spline.startTangent = {0, 5, 0};
  return spline;
}

TEST(FitCurve, KnotsAreTheLengthOfTheWayWithFourAtEachEnd) {
  const FitCurve curve = fitCurve(spline());
  ASSERT_EQ(curve.knots.size(), 10u);
  EXPECT_EQ(curve.controls.size(), 6u);
  EXPECT_EQ(curve.knots[3], 0);
  EXPECT_NEAR(curve.knots[4], std::sqrt(26.0), 1e-12);
  EXPECT_EQ(curve.knots[6], curve.knots[9]);
  EXPECT_EQ(curve.controls.front(), (Point3{0, 0, 0}));
  EXPECT_EQ(curve.controls.back(), (Point3{12, 2, 0}));
}

TEST(FitCurve, FirstControlPointsGoTheWayOfTheTangent) {
  const FitCurve curve = fitCurve(spline());
  EXPECT_EQ(curve.controls[1].x, 0);
  EXPECT_GT(curve.controls[1].y, 0);
}

TEST(FitCurve, OfOnePointOrNoneIsNoCurve) {
  Spline one;
  EXPECT_TRUE(fitCurve(one).controls.empty());
  one.fitPoints = {{1, 2, 3}, {1, 2, 3}};
  EXPECT_EQ(fitCurve(one).controls.size(), 1u);
  EXPECT_TRUE(fitCurve(one).knots.empty());
}

TEST(FitCurve, ControlPointsThatRepeatItAreKnown) {
  Spline made = spline();
  EXPECT_FALSE(followsFitPoints(made)) << "it has none";
  const FitCurve curve = fitCurve(made);
  made.knots = curve.knots;
  made.controls = curve.controls;
  EXPECT_TRUE(followsFitPoints(made));
  made.controls[2].z += 0.001;
  EXPECT_FALSE(followsFitPoints(made));
  made.controls = curve.controls;
  made.weights.assign(made.controls.size(), 1);
  EXPECT_FALSE(followsFitPoints(made));
  made.weights.clear();
  made.closed = true;
  EXPECT_FALSE(followsFitPoints(made)) << "fit points alone don't tell that";
}

TEST(FitCurve, ControlPointsOfItsOwnStay) {
  Spline made = spline();
  made.degree = 5;
  EXPECT_EQ(withControls(made).degree, 3) << "the curve's, whatever was said";
  EXPECT_EQ(withControls(made).controls, fitCurve(made).controls);
  made.controls = {{1, 1, 1}, {2, 2, 2}};
  EXPECT_EQ(withControls(made).controls, made.controls);
  EXPECT_EQ(withControls(made).degree, 5);
}

}  // namespace
}  // namespace drafting
