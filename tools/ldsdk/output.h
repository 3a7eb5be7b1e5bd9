// Where the text of commands goes. Text is gathered and passed on in large pieces.
#pragma once

#include <unistd.h>
#include <string>
#include <string_view>

namespace ldsdk::tool {

// A text as a terminal may show it: what a terminal would obey stands as \x1b, and so do bytes that
// are no UTF-8. Ends of lines stay, those of the module ("\n\r") too, and tabs.
std::string visible(std::string_view text);

class Output {
  public:
    virtual ~Output() = default;
    Output() = default;
    Output(const Output &) = delete;
    Output &operator=(const Output &) = delete;

    // Never throws: it is called from inside the module, which knows no exceptions.
    void write(std::string_view text)
    {
        text_.append(text);
        if (text_.size() >= kPiece) {
            flush();
        }
    }
    // Ends the line that the module may have left open, so that what follows has one of its own.
    void fresh_line();
    // Passes on what was gathered.
    void flush() noexcept;

  protected:
    virtual void pass_on(std::string_view text) noexcept = 0;

  private:
    static constexpr size_t kPiece = 64 * 1024;
    void note_line_end();

    std::string text_;
    bool line_open_ = false;  // as of the last flush
};

// Keeps what it is given.
class TextOutput : public Output {
  public:
    std::string take()
    {
        flush();
        return std::move(text_);
    }

  protected:
    void pass_on(std::string_view text) noexcept override
    {
        text_.append(text);
    }

  private:
    std::string text_;
};

// Standard output. On a terminal control characters are shown: text of a chip is data.
class ConsoleOutput : public Output {
  public:
    // Throws what a write met. A reader that went away is told without a text: whoever piped the
    // output into `head` knows.
    void check() const;
    // Shows a line of the tool's own on standard error, behind all that was written before it.
    void tell(const std::string &text);

  protected:
    void pass_on(std::string_view text) noexcept override;

  private:
    const bool on_terminal_ = ::isatty(STDOUT_FILENO) != 0;
    int error_ = 0;
};

}  // namespace ldsdk::tool
