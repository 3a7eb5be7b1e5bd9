#include "tools/ldsdk/output.h"

#include "host/write_file.h"
#include "tools/ldsdk/error.h"

#include <unistd.h>
#include <cerrno>
#include <cstdio>

namespace ldsdk::tool {

namespace {

// How many bytes at the start of a text are one printable character beyond ASCII: 0 for none.
size_t wide_character(std::string_view text)
{
    const auto byte = [&](size_t at) { return static_cast<unsigned char>(text[at]); };
    const size_t size = byte(0) >= 0xf0 && byte(0) <= 0xf4   ? 4
                        : byte(0) >= 0xe0 && byte(0) <= 0xef ? 3
                        : byte(0) >= 0xc2 && byte(0) <= 0xdf ? 2
                                                             : 0;
    if (size == 0 || text.size() < size) {
        return 0;
    }
    for (size_t at = 1; at < size; at++) {
        if ((byte(at) & 0xc0) != 0x80) {
            return 0;
        }
    }
    const bool control = byte(0) == 0xc2 && byte(1) < 0xa0;
    return control ? 0 : size;
}

// Whether the carriage return there belongs to the end of a line.
bool ends_line(std::string_view text, size_t at)
{
    constexpr std::string_view kEnds = "\r\n";
    return at == 0 || at + 1 == text.size() || kEnds.find(text[at - 1]) != kEnds.npos ||
           text[at + 1] == '\n';
}

}  // namespace

std::string visible(std::string_view text)
{
    std::string shown;
    shown.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        const auto c = static_cast<unsigned char>(text[at]);
        const bool plain =
            (c >= 0x20 && c < 0x7f) || c == '\n' || c == '\t' || (c == '\r' && ends_line(text, at));
        const size_t size = plain ? 1 : wide_character(text.substr(at));
        if (size == 0) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02x", c);
            shown += code;
        }
        shown += text.substr(at, size);
        at += size == 0 ? 1 : size;
    }
    return shown;
}

void Output::note_line_end()
{
    // The module ends lines with "\n\r" as well as with "\r\n".
    const size_t last = text_.find_last_not_of('\r');
    if (last != text_.npos) {
        line_open_ = text_[last] != '\n';
    }
}

void Output::fresh_line()
{
    note_line_end();
    if (line_open_) {
        write("\n");
    }
}

void Output::flush() noexcept
{
    if (text_.empty()) {
        return;
    }
    note_line_end();
    pass_on(text_);
    text_.clear();
}

void ConsoleOutput::pass_on(std::string_view text) noexcept
{
    if (error_ == 0) {
        error_ = on_terminal_ ? host::write_all(STDOUT_FILENO, visible(text))
                              : host::write_all(STDOUT_FILENO, text);
    }
}

void ConsoleOutput::check() const
{
    if (error_ == EPIPE) {
        throw failed("");
    }
    if (error_ != 0) {
        throw system_error("standard output", error_);
    }
}

void ConsoleOutput::tell(const std::string &text)
{
    if (::isatty(STDOUT_FILENO)) {
        fresh_line();
    }
    flush();
    const std::string line = text + "\n";
    host::write_all(STDERR_FILENO, ::isatty(STDERR_FILENO) != 0 ? visible(line) : line);
}

}  // namespace ldsdk::tool
