// drafting.exe: the drafting desktop. Starts the host with its window, the library and the module
// beside the program, and runs the command line until QUIT.

// The second leans on the first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "platform/framework_app.h"
#include "platform/framework_messages.h"
#include "programs/desktop/boxes.h"
#include "programs/desktop/start.h"
#include "programs/desktop/windows/dialogs.h"
#include "programs/desktop/windows/main_frame.h"
#include "samples/generator/auxiliary_library.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> commandLineWords() {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  const auto result = desktop::utf8Words(count, words);
  ::LocalFree(words);
  return result;
}

fs::path programFolder() {
  std::vector<wchar_t> path(32768);
  ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return fs::path(path.data()).parent_path();
}

class Program {
 public:
  explicit Program(const desktop::StartOptions& options)
      : options_(options),
        dialogs_(session_),
        desktop_(session_, dialogs_, desktop::userFolder()),
        frame_(new MainFrame(desktop_)) {}

  int run() {
    if (!frame_->CreateMain()) return 1;
    session_.mainWindow = frame_->m_hWnd;
    session_.line.wait = [this] { return frame_->WaitForInput(); };
    session_.lisp.interrupted = [this] { return interrupted(); };
    frame_->ShowWindow(SW_SHOWMAXIMIZED);
    frame_->InitialUpdateFrame();
    frame_->ShowState();
    start();
    session_.line.run();
    session_.modules.unloadAll();
    frame_->DestroyWindow();
    return 0;
  }

 private:
  // Each step that fails is told, and the next ones are done all the same.
  void start() {
    const auto library = enterLibrary();
    loadModule();
    if (options_.drawing) {
      session_.line.type("OPENFILE\n" + *options_.drawing + "\n");
    }
    desktop_.startRecovery(library.records.empty() ? drafting::userRecoveryFolder()
                                                   : library.records);
    if (options_.script) typeScript(*options_.script);
  }

  // The steps of making the library are told in English.
  std::string_view stepText(std::string_view step) const {
    constexpr std::pair<std::string_view, std::string_view> kSteps[] = {
        {"fonts", "字体"},
        {"symbols", "电气符号"},
        {"circuits", "主回路"},
        {"auxiliary symbols", "附件符号"},
        {"slides", "幻灯片"}};
    for (const auto& [english, chinese] : kSteps) {
      if (step == english) return session_.say(chinese, english);
    }
    return step;
  }

  void tell(const base::Status& status) {
    session_.printProblem(status);
    desktop::warn(session_, status.message());
  }

  desktop::Library enterLibrary() {
    const CWaitCursor wait;
    const auto library = desktop::enterLibrary(options_, [this](std::string_view step) {
      session_.print(
          "\n" +
          std::string(session_.say("正在准备示例主回路库: ", "Making the sample library: ")) +
          std::string(stepText(step)));
      frame_->ShowState();
      frame_->RedrawWindow(nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    });
    if (!library.ok()) {
      tell(library.status());
      return {};
    }
    samples::offerAuxiliary(library->folder / "Datcom" / "zhllib", session_.language,
                            frame_->m_hWnd);
    return *library;
  }

  void loadModule() {
    const fs::path file = programFolder() / "Vornikplan10.arx";
    const base::Status status = session_.modules.load(base::utf8FromPath(file));
    if (!status) tell(status);
  }

  void typeScript(const std::string& name) {
    const auto text = base::readFile(base::pathFromUtf8(name));
    if (text.ok()) {
      session_.line.runScript(*text);
    } else {
      tell(text.status());
    }
  }

  // Esc is looked for while LISP runs without asking for anything.
  bool interrupted() {
    constexpr ULONGLONG kBetween = 50;  // milliseconds
    const ULONGLONG now = ::GetTickCount64();
    if (now >= nextLook_ && !session_.line.waitingPrompt()) {
      nextLook_ = now + kBetween;
      MSG key{};
      while (::PeekMessageW(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE)) {
        if (key.wParam == VK_ESCAPE) session_.line.cancel();
      }
    }
    return session_.line.cancelled();
  }

  const desktop::StartOptions& options_;
  drafting::Session session_;
  WindowDialogs dialogs_;
  desktop::Desktop desktop_;
  MainFrame* frame_;  // deletes itself with its window
  ULONGLONG nextLook_ = 0;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES | ICC_WIN95_CLASSES};
  ::InitCommonControlsEx(&controls);
  AfxUseSystemWindows();
  const desktop::StartOptions options = desktop::parseOptions(commandLineWords());
  if (!options.problem.empty()) {
    const std::string text =
        "drafting: " + options.problem + "\n\ndrafting [--install DIR] [--script FILE] [DRAWING]";
    showMessageBox(
        {nullptr, base::wideFromUtf8(text), std::wstring(desktop::kProgramTitle), MB_ICONWARNING});
    return 2;
  }
  Program program(options);
  return program.run();
}
