// Files that a tool writes.
#pragma once

#include <string>
#include <string_view>

namespace ldsdk::host {

// Writes all of a text to a descriptor: 0, or the errno of the write that failed.
int write_all(int fd, std::string_view text);

// Puts a text into a file, "-" for standard output. A regular file is replaced as a whole, when all
// of its text is written, and keeps its mode and the links that lead to it; anything else (a
// device, a FIFO) is written to. Where `input` names the file that the text was made from, "-" for
// standard input, that same file is refused under whatever name. Throws std::runtime_error, the
// file's name in front; a file that was there is then as it was.
void write_file(const std::string &name, std::string_view text, const std::string &input = "");

}  // namespace ldsdk::host
