// Paste, delete and edit over a library in the real host.
#include "library_window/circuit_actions.h"

#include "store/capture_fixture.h"
#include "store/library_store.h"

namespace {

class CircuitActions : public test::CaptureFixture {
 protected:
  static constexpr const wchar_t* kThird = LR"(("03" "A01" "CM1 25A" 0 0 0 "&&&&" 0 0 0 -8))";
  static constexpr const wchar_t* kTemplate = LR"(("00" "F002" "" 0 0 0 "&&&&"))";

  CircuitActions() {
    CQuillDpData tree;
    tree.SetSubValueW(L"ZHLLIB\\空", static_cast<std::int16_t>(std::wcslen(kTemplate) + 1),
                      kTemplate, 0);
    tree.SetSubValueW(L"ZHLSY\\长度", 2, L"0", 0);
    const std::wstring path = test::Install::wide(install_.library()) + L"\\zhllib.qdp";
    EXPECT_EQ(tree.WriteDataToQdpFile(path.c_str()), 1);
    store_.emplace();
    store_->InsertCircuit(2, kThird, L"主回路&03");
  }

  std::wstring rowAt(int slot) {
    CString row = L"(none)";
    store_->GetRowAt(slot, row);
    return row.wide();
  }
  std::wstring nameAt(int slot) {
    CString name;
    store_->GetNameAt(slot, name);
    return name.wide();
  }
  std::uint32_t slideSize(const wchar_t* name) { return store_->Slides().GetSlideSize(name); }

  std::optional<CZhlkLibStore> store_;
};

TEST_F(CircuitActions, PasteGivesTheCopyItsOwnNumberAndSlide) {
  store_->CopyToClipboard(2);
  EXPECT_TRUE(pasteCircuit(*store_, 11));
  EXPECT_EQ(store_->GetCount(), 12);
  EXPECT_EQ(nameAt(11), L"主回路&12");
  EXPECT_EQ(rowAt(11), LR"(("12" "A01" "CM1 25A" 0 0 0 "&&&&" 0 0 0 -8))");
  EXPECT_EQ(rowAt(2), kThird);
  EXPECT_GT(slideSize(L"主回路&12"), 100U);
  EXPECT_EQ(session_.document().locks, 0);
  EXPECT_EQ(messages_, test::Messages());
}

TEST_F(CircuitActions, PasteIsOnDiskWhenItReturns) {
  store_->CopyToClipboard(2);
  pasteCircuit(*store_, 4);
  CZhlkLibStore again;
  CString name;
  EXPECT_EQ(again.GetNameAt(4, name), 1);
  EXPECT_EQ(name, L"主回路&05");
  EXPECT_GT(again.Slides().GetSlideSize(L"主回路&05"), 100U);
}

TEST_F(CircuitActions, PasteFillsAFreeSlotWithinTheList) {
  store_->CopyToClipboard(2);
  EXPECT_TRUE(pasteCircuit(*store_, 0));
  EXPECT_EQ(store_->GetCount(), 3);
  EXPECT_EQ(nameAt(0), L"主回路&01");
  EXPECT_EQ(nameAt(1), L"");
}

TEST_F(CircuitActions, PasteOfADeletedSourceIsTheTemplate) {
  store_->InsertCircuit(3, kThird, L"主回路&04");
  store_->CopyToClipboard(2);
  deleteCircuit(*store_, 2);
  EXPECT_TRUE(pasteCircuit(*store_, 1));
  EXPECT_EQ(rowAt(1), LR"(("02" "F002" "" 0 0 0 "&&&&"))");
}

TEST_F(CircuitActions, PasteWithoutANumberIsTheTemplate) {
  EXPECT_TRUE(pasteCircuit(*store_, 1));
  EXPECT_EQ(rowAt(1), LR"(("02" "F002" "" 0 0 0 "&&&&"))");
}

TEST_F(CircuitActions, RowWithoutABlankPastesNothing) {
  store_->SetRowAt(2, L"(\"03\")");
  store_->CopyToClipboard(2);
  EXPECT_FALSE(pasteCircuit(*store_, 11));
  EXPECT_EQ(store_->GetCount(), 3);
  EXPECT_EQ(slideSize(L"主回路&12"), 0U);
}

TEST_F(CircuitActions, PasteWhoseSlideFailsStillHasItsRow) {
  std::filesystem::remove(framePath());
  store_->SetRowAt(2, LR"(("03" "A01" "" 0 0 0))");
  store_->CopyToClipboard(2);
  EXPECT_TRUE(pasteCircuit(*store_, 5));
  EXPECT_EQ(nameAt(5), L"主回路&06");
  EXPECT_EQ(messages_.size(), 1U);
  EXPECT_EQ(slideSize(L"主回路&06"), 0U);
}

TEST_F(CircuitActions, DeleteTakesRowAndSlideAndMovesNothing) {
  store_->InsertCircuit(3, kThird, L"主回路&04");
  store_->CopyToClipboard(2);
  pasteCircuit(*store_, 1);
  deleteCircuit(*store_, 1);
  EXPECT_EQ(nameAt(1), L"");
  EXPECT_EQ(nameAt(2), L"主回路&03");
  EXPECT_EQ(slideSize(L"主回路&02"), 0U);
  EXPECT_EQ(rowAt(1), kTemplate);
}

TEST_F(CircuitActions, EditReplacesRowAndSlide) {
  record_->Load(kThird, L"主回路&03");
  record_->CaptureTree();
  ZhlkElement block;
  ASSERT_EQ(record_->ReadElement(0, block, kBlockElement), 1);
  block.blockName = L"B12";
  record_->WriteElement(block);
  storeEdit(*store_, 2, L"主回路&03", *record_);
  EXPECT_EQ(slideSize(L"主回路&03"), record_->slide.size());
  EXPECT_NE(rowAt(2).find(L"\"B12\""), std::wstring::npos);
  EXPECT_EQ(store_->GetCount(), 3);
}

TEST_F(CircuitActions, EditBehindTheEndGrowsTheList) {
  record_->number = L"20";
  record_->Load(kTemplate, L"主回路&20");
  record_->CaptureTree();
  storeEdit(*store_, 19, L"主回路&20", *record_);
  EXPECT_EQ(store_->GetCount(), 20);
  EXPECT_EQ(nameAt(10), L"");
  EXPECT_EQ(nameAt(19), L"主回路&20");
  EXPECT_EQ(rowAt(19).substr(0, 5), L"(\"20\"");
}

TEST_F(CircuitActions, EditWithoutASlideTakesTheOldOneAway) {
  store_->CopyToClipboard(2);
  pasteCircuit(*store_, 1);
  record_->Load(rowAt(1).c_str(), L"主回路&02");
  storeEdit(*store_, 1, L"主回路&02", *record_);
  EXPECT_EQ(slideSize(L"主回路&02"), 0U);
  EXPECT_EQ(nameAt(1), L"主回路&02");
}

}  // namespace
