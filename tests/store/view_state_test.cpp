// The library window's remembered view.
#include "store/store_fixture.h"

namespace {

class ViewState : public test::StoreFixture {
 protected:
  std::pair<int, int> gridOf(const std::wstring& text) {
    put({{L"ZhlViewDate\\当前格数", text}});
    return grid();
  }
  std::pair<int, int> grid() {
    int rows = -1;
    int columns = -1;
    store_->GetGridSize(rows, columns);
    return {rows, columns};
  }
};

TEST_F(ViewState, FreshLibraryHasTheDefaults) {
  EXPECT_EQ(store_->GetViewX(), 300);
  EXPECT_EQ(store_->GetViewY(), 40);
  EXPECT_EQ(store_->GetViewWidth(), 240);
  EXPECT_EQ(store_->GetViewHeight(), 200);
  EXPECT_EQ(grid(), std::pair(3, 6));
  EXPECT_EQ(store_->GetMode(), 0);
  EXPECT_EQ(store_->GetSelection(), 0);
  EXPECT_EQ(store_->GetPage(), 1);
  EXPECT_EQ(store_->GetAuxFlag(), 0);
}

TEST_F(ViewState, SettersLimitWhatTheyStore) {
  store_->SetPage(0);
  EXPECT_EQ(saved(L"ZhlViewDate\\当前页号"), L"1");
  store_->SetSelection(-5);
  EXPECT_EQ(saved(L"ZhlViewDate\\当前选择"), L"0");
  store_->SetMode(7);
  EXPECT_EQ(saved(L"ZhlViewDate\\当前状态"), L"0");
  store_->SetMode(2);
  EXPECT_EQ(saved(L"ZhlViewDate\\当前状态"), L"2");
  store_->SetAuxFlag(2);
  EXPECT_EQ(saved(L"ZhlViewDate\\辅助功能标记"), L"0");
  store_->SetAuxFlag(1);
  EXPECT_EQ(saved(L"ZhlViewDate\\辅助功能标记"), L"1");
}

TEST_F(ViewState, WindowRectangleIsKeptAsItIs) {
  store_->SetViewX(-20);
  store_->SetViewY(0);
  store_->SetViewWidth(2147483647);
  store_->SetViewHeight(-2147483647 - 1);
  store_->Save();
  open();
  EXPECT_EQ(store_->GetViewX(), -20);
  EXPECT_EQ(store_->GetViewY(), 0);
  EXPECT_EQ(store_->GetViewWidth(), 2147483647);
  EXPECT_EQ(store_->GetViewHeight(), -2147483647 - 1);
}

TEST_F(ViewState, SelectionIsCutTo16Bits) {
  store_->SetSelection(65537);
  EXPECT_EQ(store_->GetSelection(), 1);
}

TEST_F(ViewState, GridIsRowsAndColumns) {
  store_->SetGridSize(4, 12);
  EXPECT_EQ(saved(L"ZhlViewDate\\当前格数"), L"4&12");
  EXPECT_EQ(grid(), std::pair(4, 12));
  EXPECT_EQ(gridOf(L"2&6&9"), std::pair(2, 6));
}

TEST_F(ViewState, GridThatIsNoListIsThreeByThree) {
  EXPECT_EQ(gridOf(L"4"), std::pair(3, 3));
  EXPECT_EQ(gridOf(L""), std::pair(3, 6));  // an empty text is no value
}

TEST_F(ViewState, GridOfOneNumberRaises) {
  test::expectInvalidArgument([&] { gridOf(L"4&"); });
}

TEST_F(ViewState, ValueThatIsNoNumberReadsAsZero) {
  put({{L"ZhlViewDate\\当前页号", L"x"}, {L"ZhlViewDate\\当前状态", L"7"}});
  EXPECT_EQ(store_->GetPage(), 0);
  EXPECT_EQ(store_->GetMode(), 7);
}

TEST_F(ViewState, SettersChangeMemoryOnly) {
  store_->SetPage(9);
  EXPECT_FALSE(std::filesystem::exists(install_.library() / "zhllib.qdp"));
}

}  // namespace
