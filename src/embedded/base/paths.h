// Paths as the module writes them: wide texts with backslashes or slashes, in mixed case. The
// resolver turns one into a path of this system; nothing else knows about the difference.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace base {

// On Windows the path as it is. Elsewhere backslashes become slashes, and each component is taken
// as it is written if that exists, else the first (in byte order) that equals it without regard to
// case; components that don't exist at all are kept as written.
std::filesystem::path resolvePath(std::wstring_view path);

// Plain conversions, without a look at the disk. Natively a path's bytes are UTF-8.
std::filesystem::path pathFromWide(std::wstring_view path);
std::filesystem::path pathFromUtf8(std::string_view path);
std::wstring wideFromPath(const std::filesystem::path& path);
std::string utf8FromPath(const std::filesystem::path& path);

// A variable of the environment as a path; empty when it isn't set.
std::filesystem::path environmentPath(const char* name);

constexpr bool isSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

// `name` within `folder`, with a backslash between them unless there is a separator; an empty
// folder gives the name alone.
std::wstring joinPath(std::wstring_view folder, std::wstring_view name);

// What stands before the last separator (without it; empty if there is none), and what after it.
std::wstring_view folderOf(std::wstring_view path);
std::wstring_view fileNameOf(std::wstring_view path);

// The file name's extension with its dot (empty if none), and the file name without it.
std::wstring_view extensionOf(std::wstring_view path);
std::wstring_view stemOf(std::wstring_view path);

}  // namespace base
