// Clicks on every cell, and long random sequences of clicks, agree with the slow model.
#include "editor/click_model.h"

#include <random>

#include "editor/click_fixture.h"

namespace {

class ClickSequences : public test::ClickFixture {
 protected:
  ClickSequences() { takeOver(); }

  void takeOver() {
    model_.blocks.clear();
    model_.origin = record_->origin;
    for (int n = 0; n < record_->GetBlockCount(); ++n) model_.blocks.push_back(real(n));
  }

  test::ModelBlock real(int index) const {
    const std::wstring key = L"块\\" + std::to_wstring(index);
    const ZhlkElement read = element(static_cast<std::uint16_t>(index));
    return {read.blockName.wide(), read.symbolRect, read.specification.wide(),
            value(key + L"\\插入点\\x"), value(key + L"\\插入点\\y")};
  }

  void click(const POINT& at, const wchar_t* pick) {
    const int x = static_cast<int>(at.x);
    const int y = static_cast<int>(at.y);
    if (pick) {
      ASSERT_EQ(leftClick(at, pick), edgesOf(model_.leftClick(x, y, pick)));
    } else {
      ASSERT_EQ(rightClick(at), edgesOf(model_.rightClick(x, y)));
    }
    expectAgreement();
  }

  void expectAgreement() const {
    ASSERT_EQ(record_->GetBlockCount(), static_cast<int>(model_.blocks.size()));
    for (int n = 0; n < record_->GetBlockCount(); ++n) {
      const test::ModelBlock& expected = model_.blocks[static_cast<std::size_t>(n)];
      const test::ModelBlock found = real(n);
      ASSERT_TRUE(found.name == expected.name && found.specification == expected.specification &&
                  found.x == expected.x && found.y == expected.y &&
                  edges(found.cell) == edges(expected.cell))
          << "block " << n;
    }
  }

  test::ClickModel model_;
};

TEST_F(ClickSequences, EachCellTakesEachKindOfPick) {
  for (const wchar_t* pick : {L"ZHL1003", L"ZHL3001", L"空", L"ZHL1007"}) {
    for (std::uint16_t index = 0; index < 42; ++index) {
      ASSERT_NO_FATAL_FAILURE(click(middle(index), pick)) << index;
    }
  }
  for (std::uint16_t index = 0; index < 42; ++index) {
    ASSERT_NO_FATAL_FAILURE(click(middle(index), nullptr)) << index;
  }
}

TEST_F(ClickSequences, RandomClicksAgree) {
  const wchar_t* const picks[] = {L"ZHL1003", L"zhl1007", L"ZHL3001", L"ZHL3002",
                                  L"空",      L"NULL",    nullptr,    nullptr};
  std::mt19937 random(7);
  for (int sequence = 0; sequence < 20; ++sequence) {
    record_.emplace();
    record_->frame = {0, 0, 300, 400};
    record_->Load(fullRow().c_str(), L"主回路&05");
    takeOver();
    for (int i = 0; i < 60; ++i) {
      // Now and then beside the cells, where nothing lies or only an appended cell does.
      const auto right = static_cast<std::int32_t>(random() % 140) - 70;
      const auto down = static_cast<std::int32_t>(random() % 360);
      const POINT at{record_->origin.x + right, record_->origin.y - 10 + down};
      ASSERT_NO_FATAL_FAILURE(click(at, picks[random() % std::size(picks)]))
          << "sequence " << sequence << ", click " << i;
    }
  }
}

}  // namespace
