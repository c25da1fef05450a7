// The library window over many rounds, and its looks in every grid at three sizes.
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "library_window/windows/bar_fixture.h"

namespace {

using library_window_test::BarInFrame;
using library_window_test::LibraryFrame;
using window_kit::pictureOf;

// Graphics handles of this process, from the table that the system shares with it: entries of 24
// bytes with the owner's number behind the first eight and the kind at the 14th.
int graphicsHandles() {
  constexpr std::size_t kTable = 0xF8;  // in the process's environment block
  constexpr int kEntries = 65536;
  constexpr std::size_t kEntry = 24;
  const auto block = __readgsqword(0x60);
  const auto* table = *reinterpret_cast<const std::uint8_t* const*>(block + kTable);
  int count = 0;
  for (int i = 0; i < kEntries; ++i) count += table[kEntry * i + 14] != 0 ? 1 : 0;
  return count;
}

TEST_F(LibraryFrame, GraphicsHandlesAreCounted) {
  const int before = graphicsHandles();
  std::vector<HBRUSH> brushes;
  for (int i = 0; i < 10; ++i) brushes.push_back(::CreateSolidBrush(RGB(i, 2, 3)));
  EXPECT_EQ(graphicsHandles(), before + 10);
  for (const HBRUSH brush : brushes) ::DeleteObject(brush);
  EXPECT_EQ(graphicsHandles(), before);
}

// Menus of this process: the system takes a handle's lower half for the whole.
int menus() {
  int count = 0;
  for (std::uintptr_t low = 0x20; low < 0x10000; low += 2) {
    count += ::IsMenu(reinterpret_cast<HMENU>(low)) ? 1 : 0;
  }
  return count;
}

// Bytes in use on the heap that the runtime library allocates from.
std::size_t heapBytes() {
  std::size_t bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  const auto heap = reinterpret_cast<HANDLE>(::_get_heap_handle());
  while (::HeapWalk(heap, &entry)) {
    if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
  }
  return bytes;
}

TEST_F(LibraryFrame, MenusAndMemoryAreCounted) {
  const int menusBefore = menus();
  const std::size_t bytesBefore = heapBytes();
  std::vector<HMENU> made;
  for (int i = 0; i < 10; ++i) made.push_back(::CreatePopupMenu());
  std::vector<std::unique_ptr<char[]>> blocks;
  for (int i = 0; i < 1000; ++i) blocks.push_back(std::make_unique<char[]>(1000));
  EXPECT_EQ(menus(), menusBefore + 10);
  EXPECT_GE(heapBytes(), bytesBefore + 1000000);
  for (const HMENU menu : made) ::DestroyMenu(menu);
  blocks.clear();
  EXPECT_EQ(menus(), menusBefore);
  EXPECT_LT(heapBytes(), bytesBefore + 100000);
}

struct Resources {
  int windows = 0;
  int handles = 0;
  int menus = 0;
  std::size_t bytes = 0;
};

Resources used() {
  AfxOnIdle();
  Resources result;
  const auto count = [](HWND window, LPARAM counter) -> BOOL {
    ++*reinterpret_cast<int*>(counter);
    ::EnumChildWindows(
        window,
        [](HWND, LPARAM inner) -> BOOL {
          ++*reinterpret_cast<int*>(inner);
          return TRUE;
        },
        counter);
    return TRUE;
  };
  ::EnumThreadWindows(::GetCurrentThreadId(), count, reinterpret_cast<LPARAM>(&result.windows));
  result.handles = graphicsHandles();
  result.menus = menus();
  result.bytes = heapBytes();
  return result;
}

void expectNothingLeft(const Resources& before, const Resources& after) {
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_LE(after.handles, before.handles + 4) << "the system may keep a few fonts";
  EXPECT_EQ(after.menus, before.menus);
  // A round that forgot a hundred bytes would show.
  EXPECT_LT(after.bytes, before.bytes + 100000);
}

class Endurance : public LibraryFrame {
 protected:
  void round(int number) {
    open();
    ShowLibraryWindow();
    AfxPumpWaitingMessages();
    resize(400 + number % 7 * 60, 300 + number % 5 * 40);
    choose(number % 4);
    command(ID_NEXT_PAGE);
    click(cellCentre(1));
    ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_ENLARGE, 0);
    command(ID_AUXILIARY_BAR);
    HideLibraryWindow();
    frame_->SendMessage(WM_CLOSE);
    close();
    AfxPumpWaitingMessages();
  }
};

// The round leaves its preview open on purpose: it goes with the window that owns it.
TEST_F(Endurance, AThousandRoundsLeaveNothingBehind) {
  fill(20);
  for (int number = 0; number < 8; ++number) round(number);
  const Resources before = used();
  for (int number = 0; number < 1000; ++number) round(number);
  expectNothingLeft(before, used());
}

// The library is the same after each round.
class BarEndurance : public BarInFrame {
 protected:
  void round() {
    open();
    ShowLibraryWindow();
    resize(500, 400);
    AuxiliaryLibrary& library = *libraryWindow()->Auxiliary();
    library.NewGroup();
    for (const int folder : {3, 2, 1, 0}) control().SelectFolder(folder);
    for (const UINT view : {ID_BAR_LARGE_ICONS, ID_BAR_SMALL_ICONS}) {
      ::SendMessageW(bar(), WM_COMMAND, view, 0);
      AfxPumpWaitingMessages();
    }
    control().BeginItemEdit(1);
    control().SetFocus();
    library.AddItemImage(library.store().slidePath(L"fzgn0001"), L"FG001002", L"more");
    AfxPumpWaitingMessages();
    library.itemClicked(0);
    library.RemoveGroup(3);
    close();
    AfxPumpWaitingMessages();
  }
};

TEST_F(BarEndurance, ManyRoundsLeaveNothingBehind) {
  fill(1);
  writeGroups();
  for (int number = 0; number < 8; ++number) round();
  const Resources before = used();
  boxes_.clear();
  pauses_.clear();
  for (int number = 0; number < 100; ++number) {
    round();
    boxes_.clear();
    pauses_.clear();
  }
  expectNothingLeft(before, used());
}

// --- looks ---

// Every page of every grid at three sizes shows each slide in its cell. With VORNIK_PICTURES the
// pictures are kept in that folder; with VORNIK_SAMPLE that install's library is shown.
TEST_F(Endurance, EveryGridShowsItsSlidesAtEverySize) {
  const wchar_t* sample = _wgetenv(L"VORNIK_SAMPLE");
  const wchar_t* folder = _wgetenv(L"VORNIK_PICTURES");
  if (sample) {
    WriteInformation(L"ZEMMain", L"ZemSys", sample, 1);
    open();
    ShowLibraryWindow();
    AfxPumpWaitingMessages();
  } else {
    show(60);
  }
  const SIZE sizes[] = {{240, 200}, {600, 400}, {1200, 800}};
  for (const SIZE size : sizes) {
    for (const int item : {1, 0, 2, 3}) {
      resize(size.cx, size.cy);
      choose(item);
      store().SetPage(1);
      frame_->RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
      AfxPumpWaitingMessages();
      const window_kit::Picture picture = pictureOf(grid());
      const Grid cells = usableGrid(store());
      const int width = picture.width() / cells.columns;
      const int height = picture.height() / cells.rows;
      for (int cell = 0; cell < std::min<int>(cells.rows * cells.columns, store().GetCount());
           ++cell) {
        int drawn = 0;
        for (int y = 3; y < height - 3; ++y) {
          for (int x = 3; x < width - 3; ++x) {
            drawn +=
                picture.at(cell % cells.columns * width + x, cell / cells.columns * height + y) != 0
                    ? 1
                    : 0;
          }
        }
        EXPECT_GT(drawn, 0) << size.cx << " item " << item << " cell " << cell;
      }
      if (!folder) continue;
      const std::wstring name = std::to_wstring(size.cx) + L"-" + std::to_wstring(item) + L".bmp";
      window_kit::pictureOfScreen().save(std::filesystem::path(folder) / name);
    }
  }
}

}  // namespace
