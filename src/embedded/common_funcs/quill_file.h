// Tree files (.qdp). UTF-8 text, numbers and marks frozen:
//
//   qdp 1                    first line
//   <key>                    a node without value
//   <key> TAB <text>         a node with a text, which may be empty
//   <key> TAB %=<base64>     a node with bytes
//   end <N>                  last line: the number of nodes
//
// Keys and texts are escaped (escape.h). A node's parents stand before it, and the order of lines
// is the order of insertion. Lines end with LF; CR LF is read too.
#pragma once

#include <string>
#include <string_view>

#include "embedded/base/status.h"
#include "embedded/common_funcs/quill_tree.h"

namespace common_funcs {

std::string writeTree(const QuillTree& tree);

// Fills an empty tree. The message of a failure tells the line and the byte that it starts at; the
// tree then holds what stood before it.
base::Status readTree(std::string_view bytes, QuillTree& tree);

}  // namespace common_funcs
