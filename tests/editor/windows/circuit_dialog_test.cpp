// The editing dialog as a real window: real mouse input, state and pixels.
#include "editor/windows/circuit_dialog.h"

#include <algorithm>

#include "editor/windows/dialog_fixture.h"

namespace {

using test::DialogFixture;
using window_kit::WindowScript;

constexpr const wchar_t* kBlank = L"ZHL1000";  // beside the wire
constexpr std::uint32_t kLineRed = 0xFF0000;
constexpr std::uint32_t kWireGreen = 0x00FF00;

class EditingDialog : public DialogFixture {
 protected:
  // The template's cells stand in reading order, three a row.
  static std::uint16_t middleCellOfRow(int row) { return static_cast<std::uint16_t>(3 * row + 1); }

  // Turns to the page of the first three-wide symbol and picks it.
  void pickWideSymbol(WindowScript& script) {
    const int index = test::firstWideSymbol(symbols());
    for (int page = 0; page < index / 36; ++page) press(script, IDC_PICKER_NEXT_PAGE);
    clickPickerCell(script, index % 6, index % 36 / 6);
  }
};

TEST_F(EditingDialog, FreeSlotIsTitledByItsNumber) {
  for (const auto& [slot, title] :
       {std::pair(8, L"主回路&09"), std::pair(9, L"主回路&10"), std::pair(0, L"主回路&01")}) {
    open(freeCircuit(), L"", static_cast<std::uint16_t>(slot));
    run([&, expected = title](WindowScript& script) {
      script.then([&, expected] {
        CString shown;
        dialog_->GetWindowText(shown);
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(dialog_->name, expected);
      });
      script.key(VK_ESCAPE);
    });
  }
}

TEST_F(EditingDialog, NamedCircuitKeepsItsNameAndTakesTheRowsNumber) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) { script.key(VK_ESCAPE); });
  EXPECT_EQ(dialog_->name, L"主回路&03");
  EXPECT_EQ(dialog_->record.number, L"03");
}

TEST_F(EditingDialog, FifthItemOfTheSystemMenuIsGreyed) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    script.then([&] {
      const HMENU menu = ::GetSystemMenu(dialog_->m_hWnd, FALSE);
      EXPECT_NE(::GetMenuState(menu, 4, MF_BYPOSITION) & MF_GRAYED, 0U);
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, ShowsTheCircuitAndThePicker) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    script.then([&] {
      const auto circuit = window_kit::pictureOf(view());
      EXPECT_GT(circuit.count(kLineRed), 20);
      const auto whole = window_kit::pictureOf(dialog_->m_hWnd);
      test::keep(whole, "editing_dialog");
      const auto pixels = pickerPixels();
      EXPECT_GT(std::count(pixels.begin(), pixels.end(), kWireGreen), 500);  // the symbols
      EXPECT_EQ(whole.count(kWireGreen) - circuit.count(kWireGreen),
                std::count(pixels.begin(), pixels.end(), kWireGreen));  // and only there
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, ClickPicksASymbolAndMovesTheMark) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    const auto first = std::make_shared<std::vector<std::uint32_t>>();
    script.then([&, first] { *first = pickerPixels(); });
    clickPickerCell(script, 1, 1);
    script.then([&, first] {
      EXPECT_EQ(dialog_->CurrentSymbol(), symbols()[7].c_str());
      EXPECT_NE(pickerPixels(), *first);
    });
    clickPickerCell(script, 0, 0);
    script.then([&, first] {
      EXPECT_EQ(dialog_->CurrentSymbol(), symbols()[0].c_str());
      EXPECT_EQ(pickerPixels(), *first);  // the mark has left no trace
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, PagesTurnBetweenTheirEnds) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    script.then([&] {
      EXPECT_FALSE(isEnabled(IDC_PICKER_PREVIOUS_PAGE));
      EXPECT_TRUE(isEnabled(IDC_PICKER_NEXT_PAGE));
    });
    press(script, IDC_PICKER_NEXT_PAGE);
    script.then([&] {
      EXPECT_TRUE(isEnabled(IDC_PICKER_PREVIOUS_PAGE));
      EXPECT_FALSE(isEnabled(IDC_PICKER_NEXT_PAGE));  // sixty symbols, 36 a page
    });
    clickPickerCell(script, 0, 0);
    script.then([&] { EXPECT_EQ(dialog_->CurrentSymbol(), symbols()[36].c_str()); });
    clickPickerCell(script, 5, 5);
    script.then([&] { EXPECT_EQ(dialog_->CurrentSymbol(), L"F002"); });
    press(script, IDC_PICKER_PREVIOUS_PAGE);
    script.then([&] { EXPECT_FALSE(isEnabled(IDC_PICKER_PREVIOUS_PAGE)); });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, LeftClickPutsThePickedSymbolAndRightClickClears) {
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    clickPickerCell(script, 2, 0);
    clickCircuitCell(script, 1);
    script.then([&] { EXPECT_EQ(blockName(1), symbols()[2]); });
    rightClickCircuitCell(script, 1);
    script.then([&] { EXPECT_EQ(blockName(1), L"F002"); });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, OkCapturesTheSlideAndKeepsThePickersPlace) {
  open(rowOf(2), L"主回路&03", 2);
  EXPECT_EQ(run([&](WindowScript& script) {
              press(script, IDC_PICKER_NEXT_PAGE);
              clickPickerCell(script, 1, 0);
              press(script, IDOK);
            }),
            IDOK);
  EXPECT_GT(dialog_->record.slide.size(), 100U);
  EXPECT_EQ(session_.document().locks, 0);
  EXPECT_EQ(PickerPosition().page(), 1);
  EXPECT_EQ(PickerPosition().selection(), 37);
  EXPECT_EQ(boxes_.texts, std::vector<std::wstring>());
}

TEST_F(EditingDialog, CancelKeepsNothing) {
  PickerPosition().save(0, 5);
  open(rowOf(2), L"主回路&03", 2);
  EXPECT_EQ(run([&](WindowScript& script) {
              clickPickerCell(script, 1, 0);
              press(script, IDCANCEL);
            }),
            IDCANCEL);
  EXPECT_TRUE(dialog_->record.slide.empty());
  EXPECT_EQ(PickerPosition().selection(), 5);
}

TEST_F(EditingDialog, WithoutALockThereIsNoSlide) {
  open(rowOf(2), L"主回路&03", 2);
  session_.faults.failAt("lockDocument", 1);
  EXPECT_EQ(run([&](WindowScript& script) { press(script, IDOK); }), IDOK);
  EXPECT_TRUE(dialog_->record.slide.empty());
}

TEST_F(EditingDialog, WithoutAGroupTableTheCircuitCanStillBeEdited) {
  const test::MovedAway groups(library() / "t-sywj.dat");
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    script.then([&] {
      EXPECT_FALSE(isEnabled(IDC_PICKER_PREVIOUS_PAGE));
      EXPECT_FALSE(isEnabled(IDC_PICKER_NEXT_PAGE));
    });
    rightClickCircuitCell(script, 0);
    script.then([&] { EXPECT_EQ(blockName(0), L"F002"); });
    press(script, IDC_PICKER_REFRESH);
    script.key(VK_ESCAPE);
  });
  EXPECT_EQ(boxes_.texts, std::vector<std::wstring>());
}

TEST_F(EditingDialog, WithoutItsSymbolTableThePickerTellsAndTheCircuitIsThere) {
  const test::MovedAway symbols(library() / "Dqbl0012" / "Dqbl0012.idx");
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    script.then([&] { EXPECT_GT(dialog_->record.GetBlockCount(), 0); });
    script.key(VK_ESCAPE);
  });
  EXPECT_EQ(boxes_.texts.size(), 1U);
}

TEST_F(EditingDialog, WithoutASymbolLibraryCellsStayWithoutSlides) {
  const std::wstring folder = base::wideFromPath(library());
  WriteInformation(L"Dwglib", L"Dwgdir", (folder + L"\\nowhere").c_str(), 1);
  open(rowOf(2), L"主回路&03", 2);
  run([&](WindowScript& script) {
    rightClickCircuitCell(script, 1);
    script.then([&] {
      EXPECT_EQ(blockName(1), L"F002");
      EXPECT_EQ(block(1).slide.GetSize(), 0);
    });
    script.key(VK_ESCAPE);
  });
  WriteInformation(L"Dwglib", L"Dwgdir", folder.c_str(), 1);
}

TEST_F(EditingDialog, BrokenRowIsToldAndTheDialogStaysUsable) {
  open(L"(\"05\" \"A01", L"主回路&05", 4);
  run([&](WindowScript& script) {
    script.then([&] { EXPECT_EQ(dialog_->record.GetBlockCount(), 0); });
    clickPickerCell(script, 1, 1);
    script.then([&] { EXPECT_EQ(dialog_->CurrentSymbol(), symbols()[7].c_str()); });
    script.key(VK_ESCAPE);
  });
  EXPECT_EQ(boxes_.texts.size(), 1U);
}

TEST_F(EditingDialog, AbsentTemplateLeavesNoCircuitToCapture) {
  open(L"", L"", 30);
  EXPECT_EQ(run([&](WindowScript& script) { press(script, IDOK); }), IDOK);
  EXPECT_GE(boxes_.texts.size(), 2U);  // at the start, and at the capture
  EXPECT_TRUE(dialog_->record.slide.empty());
  EXPECT_EQ(session_.document().locks, 0);
}

TEST_F(EditingDialog, ScrolledViewIsHitWhereTheCircuitIs) {
  open(LR"(("05" "ZHL1003" "25A" -60 0 0 "ZHL1003" "40A" 60 -220 0 "&&&&" 0 0 0 -240))",
       L"主回路&05", 4);
  run([&](WindowScript& script) {
    script.then([&] {
      ::SendMessageW(view(), WM_VSCROLL, SB_BOTTOM, 0);
      ::SendMessageW(view(), WM_HSCROLL, SB_RIGHT, 0);
    });
    script.waitFor("the scrolled circuit", [&] {
      return ::GetScrollPos(view(), SB_VERT) > 0 && ::GetScrollPos(view(), SB_HORZ) > 0;
    });
    rightClickCircuitCell(script, 1);
    script.then([&] {
      EXPECT_EQ(blockName(1), L"F002");
      EXPECT_EQ(blockName(0), L"ZHL1003");
      test::keep(window_kit::pictureOf(dialog_->m_hWnd), "scrolled_dialog");
    });
    script.key(VK_ESCAPE);
  });
}

TEST_F(EditingDialog, WheelScrollsTheCircuit) {
  open(LR"(("05" "ZHL1003" "" 0 0 0 "ZHL1003" "" 0 -220 0 "&&&&" 0 0 0 -220))", L"主回路&05", 4);
  run([&](WindowScript& script) {
    script.waitFor("scroll bars",
                   [&] { return (::GetWindowLongW(view(), GWL_STYLE) & WS_VSCROLL) != 0; });
    script.then([&] { ::SendMessageW(view(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0); });
    script.then([&] { EXPECT_GT(::GetScrollPos(view(), SB_VERT), 0); });
    script.key(VK_ESCAPE);
  });
}

// A motor starter of eight symbols, one of them three cells wide, on a free slot.
TEST_F(EditingDialog, CircuitIsBuiltWithTheMouse) {
  open(freeCircuit(), L"", 40);
  EXPECT_EQ(
      run([&](WindowScript& script) {
        for (const int cell : {0, 1, 2, 3, 4, 5, 6}) {
          clickPickerCell(script, cell % 6, cell / 6 + 1);
          clickCircuitCell(script, middleCellOfRow(cell));
        }
        pickWideSymbol(script);
        clickCircuitCell(script, middleCellOfRow(8));
        script.then([&] { test::keep(window_kit::pictureOf(dialog_->m_hWnd), "built_circuit"); });
        press(script, IDOK);
      }),
      IDOK);
  int drawn = 0;
  int wide = 0;
  for (std::uint16_t n = 0; n < dialog_->record.GetBlockCount(); ++n) {
    const std::wstring name = blockName(n);
    drawn += name != L"F002" && name != L"NULL" && name != kBlank ? 1 : 0;
    wide += name.starts_with(L"ZHL3") ? 1 : 0;
  }
  EXPECT_EQ(drawn, 8);
  EXPECT_EQ(wide, 1);
  EXPECT_EQ(dialog_->name, L"主回路&41");
  EXPECT_GT(dialog_->record.slide.size(), 500U);
}

}  // namespace
