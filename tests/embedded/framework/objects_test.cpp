// Run-time classes: names, bases, making objects from the class alone.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/framework_objects.h"

namespace {

class Shape : public CObject {
  DECLARE_DYNAMIC(Shape)

 public:
  Shape() = default;
};

class Circle : public Shape {
  DECLARE_DYNCREATE(Circle)

 public:
  Circle() = default;
  int radius = 7;
};

class Disc : public Circle {};  // has no class of its own

IMPLEMENT_DYNAMIC(Shape, CObject)
IMPLEMENT_DYNCREATE(Circle, Shape)

TEST(RuntimeClass, KnowsNameSizeAndBase) {
  const CRuntimeClass* record = RUNTIME_CLASS(Circle);
  EXPECT_EQ(record->m_lpszClassName, std::string("Circle"));
  EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(Circle)));
  EXPECT_EQ(record->m_pBaseClass, RUNTIME_CLASS(Shape));
  EXPECT_EQ(RUNTIME_CLASS(CObject)->m_pBaseClass, nullptr);
}

TEST(RuntimeClass, AnObjectIsOfItsClassAndOfEveryBase) {
  const Circle circle;
  const Shape shape;
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Circle)));
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Shape)));
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(shape.IsKindOf(RUNTIME_CLASS(Circle)));
}

TEST(RuntimeClass, AClassWithoutDeclarationIsItsBase) {
  const Disc disc;
  EXPECT_EQ(disc.GetRuntimeClass(), RUNTIME_CLASS(Circle));
}

TEST(RuntimeClass, MakesObjectsOfDynamicClassesAlone) {
  const std::unique_ptr<CObject> made(RUNTIME_CLASS(Circle)->CreateObject());
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetRuntimeClass(), RUNTIME_CLASS(Circle));
  EXPECT_EQ(static_cast<Circle*>(made.get())->radius, 7);
  EXPECT_EQ(RUNTIME_CLASS(Shape)->CreateObject(), nullptr);
}

}  // namespace
