// Names that the library gives by itself. Users' names compare with case, these without, so that a
// new one never differs from another in case alone.
#pragma once

#include <string>
#include <vector>

using NameList = std::vector<std::wstring>;

// "新建图库组", with the first number from 1 on behind it if that is taken.
std::wstring newGroupTitle(const NameList& taken);
// "fzgn0001": number in four digits.
std::wstring groupDirectory(int number);
// The title, "-" and the first number from 1 on that isn't taken.
std::wstring newItemLabel(const std::wstring& title, const NameList& taken);
// "FG001001": the directory's last three characters, then the first free number in three digits.
std::wstring newBlockName(const std::wstring& directory, const NameList& taken);

// True for a name that stands for an entry of the folder it is looked up in, and for nothing
// elsewhere: no separator, drive, stream or device, not "." or "..", also behind the blanks and
// dots that the system drops at the end.
bool isPlainName(const std::wstring& name);
// True for one level of a key in the tree.
bool isOneLevel(const std::wstring& name);
