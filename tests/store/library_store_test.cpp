// The library: names, rows, the clipboard, and what doesn't fit.
#include "store/store_fixture.h"

namespace {

using test::takeTranscript;

const std::wstring kSeparator(1, L'\x03');

std::wstring joined(const std::vector<std::wstring>& names) {
  std::wstring text;
  for (const std::wstring& name : names) text += name + kSeparator;
  return text;
}

class LibraryStore : public test::StoreFixture {
 protected:
  // Slots with these names; a row "row <name>" for each that isn't empty, and a template.
  void fill(const std::vector<std::wstring>& names) {
    std::vector<std::pair<std::wstring, std::wstring>> values = {
        {L"ZHLSY", joined(names)},
        {L"ZHLSY\\长度", std::to_wstring(names.size())},
        {L"ZHLLIB\\空", L"template"}};
    for (const std::wstring& name : names) {
      if (!name.empty()) values.emplace_back(L"ZHLLIB\\" + name, L"row " + name);
    }
    put(values);
  }
  std::wstring nameAt(int index) {
    CString name = L"left over";
    nameResult_ = store_->GetNameAt(index, name);
    return name.wide();
  }
  std::wstring rowAt(int index) {
    CString row = L"untouched";
    rowResult_ = store_->GetRowAt(index, row);
    return row.wide();
  }
  int nameResult_ = -1;
  int rowResult_ = -1;
};

TEST_F(LibraryStore, NumberTextHasTwoDigitsAtLeast) {
  EXPECT_EQ(CZhlkLibStore::CircuitName(8).wide(), L"主回路&09");
  EXPECT_EQ(CZhlkLibStore::CircuitName(9).wide(), L"主回路&10");
  EXPECT_EQ(CZhlkLibStore::NumberText(0).wide(), L"01");
  EXPECT_EQ(CZhlkLibStore::NumberText(99).wide(), L"100");
}

TEST_F(LibraryStore, MissingFilesAreAnEmptyLibrary) {
  EXPECT_EQ(store_->GetCount(), -1);
  CStringArray names;
  EXPECT_EQ(store_->ReadNameList(names), 0);
  EXPECT_EQ(nameAt(0), L"");
  EXPECT_EQ(rowAt(0), L"untouched");
  EXPECT_EQ(rowResult_, 0);
}

TEST_F(LibraryStore, CountIsTheStoredLengthCutTo16Bits) {
  put({{L"ZHLSY\\长度", L"70000"}});
  EXPECT_EQ(store_->GetCount(), 70000 - 65536);
  put({{L"ZHLSY\\长度", L""}});
  EXPECT_EQ(store_->GetCount(), -1);
  put({{L"ZHLSY\\长度", L"7"}});
  EXPECT_EQ(store_->GetCount(), 7);
}

TEST_F(LibraryStore, CircuitAtIndexThreeStandsBehindThreeEmptyNames) {
  put({{L"ZHLSY\\长度", L"0"}});
  EXPECT_EQ(store_->InsertCircuit(3, L"row", L"主回路&04"), 0);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"", L"", L"", L"主回路&04"}));
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"4");
  EXPECT_EQ(saved(L"ZHLLIB\\主回路&04"), L"row");
}

TEST_F(LibraryStore, WithoutLengthKeyOneFreeSlotMoreIsMade) {
  EXPECT_EQ(store_->InsertCircuit(0, L"row", L"A"), 0);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"", L"A"}));
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"2");
}

TEST_F(LibraryStore, InsertingInTheMiddleMovesTheRest) {
  fill({L"A", L"B"});
  EXPECT_EQ(store_->InsertCircuit(1, L"row", L"C"), 0);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"A", L"C", L"B"}));
}

TEST_F(LibraryStore, InsertingAnEmptyNameStoresNoRow) {
  fill({L"A"});
  EXPECT_EQ(store_->InsertCircuit(1, L"row", L""), 0);
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"2");
  EXPECT_EQ(saved(L"ZHLLIB"), L"(none)");
}

TEST_F(LibraryStore, NegativeIndexIsRefused) {
  EXPECT_EQ(store_->InsertCircuit(-1, L"row", L"A"), -1);
  EXPECT_FALSE(hasKey(L"ZHLSY"));
}

TEST_F(LibraryStore, NamesWithinTheListAreGiven) {
  fill({L"A", L"", L"C"});
  EXPECT_EQ(nameAt(0), L"A");
  EXPECT_EQ(nameResult_, 1);
  EXPECT_EQ(nameAt(1), L"");
  EXPECT_EQ(nameResult_, 1);
  for (const int outside : {-1, 3}) {
    EXPECT_EQ(nameAt(outside), L"");
    EXPECT_EQ(nameResult_, 0);
  }
}

TEST_F(LibraryStore, TextWithoutSeparatorIsNoList) {
  put({{L"ZHLSY", L"A"}, {L"ZHLSY\\长度", L"1"}});
  CStringArray names;
  EXPECT_EQ(store_->ReadNameList(names), 0);
  EXPECT_EQ(store_->DeleteAt(0), -2);
  EXPECT_EQ(store_->RenameAt(0, L"B"), 0);
}

TEST_F(LibraryStore, ListShorterThanItsLengthRaises) {
  put({{L"ZHLSY", joined({L"A"})}, {L"ZHLSY\\长度", L"3"}});
  CString out;
  test::expectInvalidArgument([&] { store_->GetNameAt(2, out); });
  test::expectInvalidArgument([&] { store_->RenameAt(2, L"B"); });
  test::expectInvalidArgument([&] { store_->DeleteAt(2); });
  test::expectInvalidArgument([&] { store_->HasCircuit(2); });
}

TEST_F(LibraryStore, RowOfAFreeSlotOrBeyondIsTheTemplate) {
  fill({L"A", L""});
  EXPECT_EQ(rowAt(0), L"row A");
  for (const int index : {1, 2, -1}) {
    EXPECT_EQ(rowAt(index), L"template");
    EXPECT_EQ(rowResult_, 1);
  }
}

TEST_F(LibraryStore, WithoutTemplateTheRowIsUntouched) {
  put({{L"ZHLSY\\长度", L"0"}});
  EXPECT_EQ(rowAt(5), L"untouched");
  EXPECT_EQ(rowResult_, 0);
}

TEST_F(LibraryStore, RowIsWrittenUnderTheSlotsName) {
  fill({L"A", L""});
  EXPECT_EQ(store_->SetRowAt(0, L"new"), 1);
  EXPECT_EQ(store_->SetRowAt(1, L"new"), 0);
  EXPECT_EQ(store_->SetRowAt(2, L"new"), 0);
  EXPECT_EQ(saved(L"ZHLLIB\\A"), L"new");
}

TEST_F(LibraryStore, RenamingMovesTheRow) {
  fill({L"A", L"B"});
  EXPECT_EQ(store_->RenameAt(0, L"C"), 1);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"C", L"B"}));
  EXPECT_EQ(saved(L"ZHLLIB\\C"), L"row A");
  EXPECT_FALSE(hasKey(L"ZHLLIB\\A"));
  EXPECT_EQ(store_->RenameAt(2, L"D"), 0);
  EXPECT_EQ(store_->RenameAt(-1, L"D"), 0);
}

TEST_F(LibraryStore, RenamingOntoAnotherKeyReplacesIt) {
  fill({L"A", L"B"});
  EXPECT_EQ(store_->RenameAt(0, L"B"), 1);
  EXPECT_EQ(saved(L"ZHLLIB\\B"), L"row A");
}

TEST_F(LibraryStore, RenamingAFreeSlotMakesAKeyWithoutUsableValue) {
  fill({L"A", L""});
  EXPECT_EQ(store_->RenameAt(1, L"B"), 1);
  EXPECT_TRUE(hasKey(L"ZHLLIB\\B"));
  EXPECT_EQ(rowAt(1), L"untouched");
  EXPECT_EQ(rowResult_, 0);
}

TEST_F(LibraryStore, CaseCountsInNames) {
  fill({L"A", L"a"});
  EXPECT_EQ(rowAt(0), L"row A");
  EXPECT_EQ(rowAt(1), L"row a");
}

TEST_F(LibraryStore, DeletingInTheMiddleLeavesAGapAndAtTheEndClosesIt) {
  fill({L"A", L"B", L"C"});
  EXPECT_EQ(store_->DeleteAt(1), 0);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"A", L"", L"C"}));
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"3");
  EXPECT_FALSE(hasKey(L"ZHLLIB\\B"));
  EXPECT_EQ(store_->DeleteAt(2), 0);
  EXPECT_EQ(saved(L"ZHLSY"), joined({L"A"}));
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"1");
}

TEST_F(LibraryStore, DeletingTheLastCircuitEmptiesTheList) {
  fill({L"A"});
  EXPECT_EQ(store_->DeleteAt(0), 0);
  EXPECT_EQ(saved(L"ZHLSY"), L"");
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"0");
  EXPECT_EQ(store_->DeleteAt(0), -2);
}

TEST_F(LibraryStore, DeletingOutsideTheListRaises) {
  fill({L"A"});
  test::expectInvalidArgument([&] { store_->DeleteAt(-1); });
  test::expectInvalidArgument([&] { store_->DeleteAt(1); });
}

TEST_F(LibraryStore, DeletingMinusOneWithoutLengthKeyIsRefused) {
  put({{L"ZHLSY", joined({L"A"})}});
  EXPECT_EQ(store_->DeleteAt(-1), -1);
}

TEST_F(LibraryStore, SlotWithANameHasACircuit) {
  fill({L"A", L""});
  EXPECT_EQ(store_->HasCircuit(0), 1);
  EXPECT_EQ(store_->HasCircuit(1), 0);
  EXPECT_EQ(store_->HasCircuit(9), 0);
}

TEST_F(LibraryStore, ClipboardHoldsTheNumberAcrossRuns) {
  fill({L"A"});
  EXPECT_EQ(store_->CopyToClipboard(4), 1);
  store_->Save();
  open();
  CString number;
  EXPECT_EQ(store_->GetClipboard(number), 1);
  EXPECT_EQ(number.wide(), L"05");
}

TEST_F(LibraryStore, EmptyClipboardReadsAsNothingCopied) {
  CString number;
  EXPECT_EQ(store_->GetClipboard(number), 0);
  EXPECT_EQ(number.wide(), L"空");
  put({{L"ZHLSY\\剪贴板", L"空"}});
  EXPECT_EQ(store_->GetClipboard(number), 0);
  put({{L"ZHLSY\\剪贴板", L""}});  // an empty text counts as a value here
  EXPECT_EQ(store_->GetClipboard(number), 1);
  EXPECT_EQ(number.wide(), L"");
}

TEST_F(LibraryStore, PasteNeedsAFreeSlotAndACopy) {
  fill({L"A", L""});
  EXPECT_EQ(store_->CanPaste(1), 0);
  store_->CopyToClipboard(4);
  EXPECT_EQ(store_->CanPaste(0), 0);
  EXPECT_EQ(store_->CanPaste(1), 1);
  EXPECT_EQ(store_->CanPaste(7), 1);
}

TEST_F(LibraryStore, LongestListFitsAndOneMoreIsRefusedOnce) {
  put({{L"ZHLSY\\长度", L"0"}});
  const int longest = 32766 - 2;  // free slots before a name of one character
  EXPECT_EQ(store_->InsertCircuit(longest, L"row", L"A"), 0);
  EXPECT_EQ(store_->GetCount(), longest + 1);
  EXPECT_EQ(takeTranscript(), L"");
  EXPECT_EQ(store_->InsertCircuit(0, L"row", L"B"), -1);
  EXPECT_EQ(takeTranscript(), L"\n数据过长,主回路库未修改.");
  EXPECT_FALSE(hasKey(L"ZHLLIB\\B"));
  EXPECT_EQ(saved(L"ZHLSY").size(), 32766u);
}

TEST_F(LibraryStore, HugeIndexIsRefusedWithoutTakingMemory) {
  put({{L"ZHLSY\\长度", L"0"}});
  EXPECT_EQ(store_->InsertCircuit(2147483647, L"row", L"A"), -1);
  EXPECT_EQ(takeTranscript(), L"\n数据过长,主回路库未修改.");
  EXPECT_FALSE(hasKey(L"ZHLSY\\A"));
}

TEST_F(LibraryStore, RowThatIsTooLongChangesNothing) {
  fill({L"A"});
  const std::wstring longest(32766, L'x');
  EXPECT_EQ(store_->SetRowAt(0, longest), 1);
  EXPECT_EQ(rowAt(0), longest);
  EXPECT_EQ(store_->SetRowAt(0, longest + L"x"), 0);
  EXPECT_EQ(takeTranscript(), L"\n数据过长,主回路库未修改.");
  EXPECT_EQ(rowAt(0), longest);
  EXPECT_EQ(store_->InsertCircuit(1, longest + L"x", L"B"), -1);
  takeTranscript();
  EXPECT_EQ(saved(L"ZHLSY\\长度"), L"1");
}

TEST_F(LibraryStore, RenameThatIsTooLongChangesNothing) {
  fill({L"A"});
  EXPECT_EQ(store_->RenameAt(0, std::wstring(32766, L'x')), 0);
  EXPECT_EQ(takeTranscript(), L"\n数据过长,主回路库未修改.");
  EXPECT_EQ(nameAt(0), L"A");
}

TEST_F(LibraryStore, DestructionSaves) {
  store_->SetPage(4);
  open();
  EXPECT_EQ(store_->GetPage(), 4);
}

TEST_F(LibraryStore, SlidesAreSavedWithTheTree) {
  store_->Slides().AddSlideW(L"主回路&01", "slide", 5);
  store_->Save();
  open();
  EXPECT_EQ(store_->Slides().GetSlideSize(L"主回路&01"), 5u);
}

}  // namespace
