// Folders of the library on the disk.
#pragma once

#include <string>

// Deletes what stands in the folder, then the folder. A link is deleted itself and never followed;
// a file in the folder's place is none of the caller's. What can't be deleted stays, without a
// word.
void DeleteDirectoryTree(const std::wstring& path);

// The first number from 1 on whose directory isn't there, as a name, within the library's folder,
// which ends in a backslash. A file of that name doesn't count as taken: making the folder fails.
std::wstring newGroupDirectory(const std::wstring& library);
