// The sample groups: each in its band, and what a library without groups can be given.
#include "samples/generator/auxiliary_library.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "auxiliary/auxiliary_store.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/slide_store/slide.h"
#include "platform/framework_messages.h"
#include "platform/slide_store.h"
#include "samples/generator/definitions.h"
#include "samples/generator/drawings.h"
#include "samples/generator/slides.h"
#include "support/install.h"

namespace samples {
namespace {

TEST(SampleAuxiliary, GroupsHaveTitleFolderAndSymbols) {
  const auto groups = auxiliaryGroups();
  ASSERT_EQ(groups.size(), 3u);
  EXPECT_EQ(groups[0].directory, "fzgn0001");
  EXPECT_EQ(groups[1].directory, "fzgn0002");
  EXPECT_EQ(groups[2].directory, "fzgn0003");
  for (const AuxiliaryGroup& group : groups) {
    EXPECT_FALSE(group.title.empty());
    EXPECT_GE(group.items.size(), 3u);
  }
}

// The symbols of one circuit, one of each group, stand at one point.
TEST(SampleAuxiliary, EachGroupStandsInABandOfItsOwnBelowTheMarker) {
  constexpr double kBand = 11;
  double top = 0;
  for (const AuxiliaryGroup& group : auxiliaryGroups()) {
    for (const AuxiliaryItem& item : group.items) {
      const auto drawing = makeFigureDrawing(item.figure);
      const base::Box2 box = drafting::DisplayList::of(*drawing).bounds();
      EXPECT_LE(box.max.y, top) << item.label;
      EXPECT_GT(box.min.y, top - kBand) << item.label;
      EXPECT_LE(std::max(-box.min.x, box.max.x), 12.5) << item.label << " is as wide as a circuit";
    }
    top -= kBand;
  }
}

TEST(SampleAuxiliary, EachIconShowsItsSymbol) {
  for (const AuxiliaryGroup& group : auxiliaryGroups()) {
    for (const AuxiliaryItem& item : group.items) {
      const std::string slide = iconSlide(*makeFigureDrawing(item.figure));
      const auto header = slide_store::readSlideHeader(slide);
      ASSERT_TRUE(header.ok()) << item.label;
      EXPECT_EQ(header->highX + 1, 2 * (header->highY + 1)) << item.label;
      EXPECT_GT(slide.size(), 60u) << item.label;
    }
  }
}

// --- a library without groups ---

class AuxiliaryMending : public testing::Test {
 protected:
  ~AuxiliaryMending() override { setMessageBoxHandler({}); }

  std::filesystem::path library() const { return install_.library(); }
  std::filesystem::path file(const std::string& name) const { return library() / name; }
  AuxiliaryFindings findings() const { return examineAuxiliary(library()); }
  std::vector<std::wstring> titles() const { return AuxiliaryStore().shownTitles(); }
  // A library of the samples, saved twice.
  void makeWhole() {
    ASSERT_TRUE(makeAuxiliaryLibrary(library()).ok());
    AuxiliaryStore().close(true);
    ASSERT_EQ(titles().size(), 3u);
  }
  void spoil(const std::string& bytes) { test::writeBytes(file("zhlFzgn.qdp"), bytes); }
  // Each question is answered by the next of these; 6 is yes.
  bool offer(std::vector<int> answers) {
    questions_.clear();
    setMessageBoxHandler([this, answers](const MessageBoxCall& call) {
      questions_.push_back(call.text);
      return questions_.size() <= answers.size() ? answers[questions_.size() - 1] : 7;
    });
    return offerAuxiliary(library(), drafting::Language::English);
  }

  test::Install install_;
  drafting::Session session_;  // its command line takes what is printed
  std::vector<std::wstring> questions_;
};

const char* const kEmptyStore = "qdp 1\n图标状态\t0\nend 1\n";
constexpr int kYes = 6, kNo = 7;

TEST_F(AuxiliaryMending, TellsWhatIsWrong) {
  EXPECT_EQ(findings().state, AuxiliaryState::missing);
  EXPECT_FALSE(findings().kept);
  spoil("no tree");
  EXPECT_EQ(findings().state, AuxiliaryState::damaged);
  spoil(kEmptyStore);
  EXPECT_EQ(findings().state, AuxiliaryState::empty);
  std::filesystem::remove(file("zhlFzgn.qdp"));
  makeWhole();
  EXPECT_EQ(findings().state, AuxiliaryState::usable);
  EXPECT_TRUE(findings().kept);
}

TEST_F(AuxiliaryMending, BringsTheKeptGenerationBackAndKeepsTheDamagedFile) {
  makeWhole();
  spoil("no tree");
  ASSERT_TRUE(restoreKeptAuxiliary(library()).ok());
  EXPECT_EQ(titles().size(), 3u);
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp.damaged-1")), "no tree");
  EXPECT_TRUE(findings().kept) << "the kept generation stays";
}

TEST_F(AuxiliaryMending, AnEmptyStoreIsKeptAsTheGenerationBefore) {
  makeWhole();
  spoil(kEmptyStore);
  ASSERT_TRUE(restoreKeptAuxiliary(library()).ok());
  EXPECT_EQ(titles().size(), 3u);
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp.bak")), kEmptyStore);
}

TEST_F(AuxiliaryMending, WithoutAKeptGenerationNothingChanges) {
  spoil("no tree");
  EXPECT_FALSE(restoreKeptAuxiliary(library()).ok());
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp")), "no tree");
}

TEST_F(AuxiliaryMending, SampleGroupsTakeDirectoriesThatAreFree) {
  std::filesystem::create_directories(file("fzgn0002"));
  test::writeBytes(file("fzgn0002/FG002001.dwg"), "precious");
  spoil("no tree");
  ASSERT_TRUE(addSampleGroups(library()).ok());
  const AuxiliaryStore store;
  const auto all = store.shownTitles();
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(store.directoryOf(all[0]), L"fzgn0001");
  EXPECT_EQ(store.directoryOf(all[1]), L"fzgn0003");
  EXPECT_EQ(store.directoryOf(all[2]), L"fzgn0004");
  EXPECT_EQ(store.blockOf(all[1], store.labelsOf(all[1]).GetAt(0).wide()), L"FG003001");
  EXPECT_TRUE(std::filesystem::exists(file("fzgn0003/FG003001.dwg")));
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(store.slidePath(L"fzgn0003"));
  EXPECT_NE(slides.GetIndexFromName(L"FG003001"), kNoSlide);
  EXPECT_EQ(test::bytesOf(file("fzgn0002/FG002001.dwg")), "precious");
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp.damaged-1")), "no tree");
}

TEST_F(AuxiliaryMending, SampleGroupsThatCantBeWrittenAreReported) {
  std::filesystem::remove_all(library());
  test::writeBytes(library(), "a file stands here");
  EXPECT_FALSE(addSampleGroups(library()).ok());
}

// --- the question ---

TEST_F(AuxiliaryMending, AsksNothingWhileThereAreGroups) {
  makeWhole();
  EXPECT_TRUE(offer({}));
  EXPECT_TRUE(questions_.empty());
}

TEST_F(AuxiliaryMending, OffersTheKeptGenerationFirst) {
  makeWhole();
  spoil("no tree");
  EXPECT_TRUE(offer({kYes}));
  EXPECT_EQ(questions_, std::vector<std::wstring>{L"The auxiliary library's file is damaged.\n"
                                                  L"Bring back what was saved before?"});
  EXPECT_EQ(titles().size(), 3u);
}

TEST_F(AuxiliaryMending, OffersTheSamplesNext) {
  makeWhole();
  std::filesystem::remove(file("zhlFzgn.qdp"));
  EXPECT_TRUE(offer({kNo, kYes}));
  ASSERT_EQ(questions_.size(), 2u);
  EXPECT_EQ(questions_[1], L"The auxiliary library's file is missing.\nPut the sample groups in?");
  EXPECT_EQ(AuxiliaryStore().directoryOf(titles()[0]), L"fzgn0004");
}

TEST_F(AuxiliaryMending, ANoToAllLeavesEverything) {
  spoil(kEmptyStore);
  EXPECT_FALSE(offer({kNo}));
  EXPECT_EQ(questions_, std::vector<std::wstring>{L"The auxiliary library has no groups.\n"
                                                  L"Put the sample groups in?"});
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp")), kEmptyStore);
  EXPECT_FALSE(std::filesystem::exists(file("fzgn0001")));
}

TEST_F(AuxiliaryMending, WithoutAnybodyToAnswerNothingIsDone) {
  setMessageBoxHandler({});
  EXPECT_FALSE(offerAuxiliary(library(), drafting::Language::Chinese));
  EXPECT_TRUE(std::filesystem::is_empty(library()));
}

TEST_F(AuxiliaryMending, AFailureIsTold) {
  std::filesystem::remove_all(library());
  test::writeBytes(library(), "a file stands here");
  EXPECT_FALSE(offer({kYes}));
  ASSERT_EQ(questions_.size(), 2u);
  EXPECT_NE(questions_[1].find(L"zhllib"), std::wstring::npos);
}

}  // namespace
}  // namespace samples
