// Linked into every test program for Windows: a crash is told with its place, and ends the program
// with the exception's code. Wine's own debugger, which would do both otherwise, ends a program
// with status 0 now and then.
#include <windows.h>

#include <cstdio>
#include <cwchar>

namespace {

// Module and offset, which addr2line reads.
void printPlace(const void* address) {
  HMODULE module = nullptr;
  wchar_t path[MAX_PATH] = L"?";
  if (GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          static_cast<const wchar_t*>(address), &module) != 0) {
    GetModuleFileNameW(module, path, MAX_PATH);
  }
  const wchar_t* name = std::wcsrchr(path, L'\\');
  std::fprintf(
      stderr, "  %ls+0x%llx\n", name != nullptr ? name + 1 : path,
      reinterpret_cast<unsigned long long>(address) - reinterpret_cast<unsigned long long>(module));
}

LONG WINAPI reportCrash(EXCEPTION_POINTERS* exception) {
  const DWORD code = exception->ExceptionRecord->ExceptionCode;
  std::fprintf(stderr, "crashed with exception 0x%08lx at\n", code);
  printPlace(exception->ExceptionRecord->ExceptionAddress);
  void* frames[32];
  const USHORT count = CaptureStackBackTrace(0, 32, frames, nullptr);
  std::fputs("called from (the handler's own frames first)\n", stderr);
  for (USHORT i = 0; i < count && frames[i] != nullptr; ++i) printPlace(frames[i]);
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), code);
  return EXCEPTION_EXECUTE_HANDLER;
}

[[maybe_unused]] const LPTOP_LEVEL_EXCEPTION_FILTER previous =
    SetUnhandledExceptionFilter(reportCrash);

}  // namespace
