// Fills the bar from the store.
#include "auxiliary/auxiliary_library.h"
#include "platform/framework_exceptions.h"
#include "platform/slide_store.h"

namespace {

constexpr int kFolderStep = 20;     // milliseconds
constexpr int kItemInterval = 200;  // milliseconds

}  // namespace

void AuxiliaryLibrary::LoadStore() {
  bar_.setSmallIcons(!store_.largeIcons());
  const CStringArray titles = store_.titles();
  for (int i = 0; i < titles.GetSize(); ++i) {
    const std::wstring title = titles.GetAt(i).wide();
    if (!store_.isShown(title)) continue;
    bar_.addFolder(title, i);
    loadFolder(i, title);
  }
  bar_.setAnimation(kFolderStep, kItemInterval);
  if (!titles.IsEmpty()) bar_.selectFolder(0);
}

// The folder's index is meant to be the title's position: behind a title that isn't shown it is
// beyond the bar's folders.
void AuxiliaryLibrary::loadFolder(int folder, const std::wstring& title) {
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(store_.slidePath(store_.directoryOf(title)));
  const CStringArray labels = store_.labelsOf(title);
  if (!labels.IsEmpty()) bar_.makeIconLists(labels.GetSize());
  for (int j = 0; j < labels.GetSize(); ++j) {
    const std::wstring label = labels.GetAt(j).wide();
    bar_.addIcon(slides, store_.blockOf(title, label));
    // The item's icon is the one at its position, also where a slide before it gave none.
    bar_.insertItem(folder, j, label, j);
  }
  bar_.giveIconLists(folder);
}

// A store that a bad index stops on has shown what it could by then.
void AuxiliaryLibrary::fillBar() {
  try {
    LoadStore();
  } catch (CException* exception) {
    bar_.notice(exception->Message());
    exception->Delete();
  }
}
