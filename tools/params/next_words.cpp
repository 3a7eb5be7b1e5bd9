// Follows a command line word by word, as its handler would read it.
#include "tools/params/params.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

namespace ldsdk::tool {

namespace {

// The words behind a command that are not followed yet.
class Reader {
  public:
    explicit Reader(std::span<const std::string> words) : words_(words) {}

    bool done() const
    {
        return words_.empty();
    }
    const std::string &take()
    {
        const std::string &word = words_.front();
        words_ = words_.subspan(1);
        return word;
    }

  private:
    std::span<const std::string> words_;
};

std::string plain(std::string text)
{
    std::erase(text, '`');
    return text;
}

NextWord any_of(const NpSmdParam &param)
{
    return {"<" + plain(values_of(param)) + ">", "", false};
}

NextWord number_of(const NpSmdKeyItem &item)
{
    return {"<" + std::to_string(item.lMin) + " to " +
                std::to_string(static_cast<uint32_t>(item.lMax)) + ">",
            "", false};
}

// What can stand where a value stands.
std::vector<NextWord> value_words(const NpSmdParam &param)
{
    std::vector<NextWord> words;
    if (param.stItem.ulType == NP_SMD_PORT) {
        const char *name = nullptr;
        for (uint32_t i = 0; (name = Np_SMD_PortTypeWord(i)) != nullptr; i++) {
            words.push_back({name, "port type", false});
        }
        return words;
    }
    if (param.stItem.ulType == NP_SMD_SIGNED) {
        return {{"plus", "", false}, {"minus", "", false}};
    }
    for (uint32_t i = 0; i < param.ulEnumNum; i++) {
        words.push_back(
            {param.pstEnum[i].pszText, std::to_string(param.pstEnum[i].ulValue), false});
    }
    if (words.empty()) {
        words.push_back(any_of(param));
    }
    return words;
}

std::optional<uint32_t> number(const NpSmdParam &param, const std::string &word)
{
    for (uint32_t i = 0; i < param.ulEnumNum; i++) {
        if (word == param.pstEnum[i].pszText) {
            return param.pstEnum[i].ulValue;
        }
    }
    uint32_t value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size()) {
        return std::nullopt;
    }
    return value;
}

// One line of a command.
class Walk {
  public:
    Walk(NpCliHandler handler, std::span<const std::string> words)
        : form_(Np_SMD_CommandForm(handler)), params_(params_of(handler)), reader_(words)
    {
    }

    std::vector<NextWord> next()
    {
        if (form_ == NP_FORM_UNKNOWN) {
            return {{kNoWord, "the command has its place only; it answers \"Invalid command!\"",
                     false}};
        }
        if (form_ == NP_FORM_COUNTED) {
            return counted();
        }
        size_t at = 0;
        const bool all = form_ == NP_FORM_PAIRS || form_ == NP_FORM_VALUES;
        for (; at < params_.size() && (all || params_[at].bKey != 0); at++) {
            if (let_in(params_[at]) && !pair(params_[at], form_ != NP_FORM_VALUES)) {
                return found_;
            }
        }
        if (form_ == NP_FORM_SET || form_ == NP_FORM_ENTRY) {
            return in_order(at);
        }
        return form_ == NP_FORM_LARGE ? in_any_order(at) : end();
    }

  private:
    bool let_in(const NpSmdParam &param) const
    {
        if (param.stOf.pszOf == nullptr) {
            return true;
        }
        const auto chosen = chosen_.find(param.stOf.pszOf);
        const uint32_t value = chosen == chosen_.end() ? 0 : chosen->second;
        return value < 32 ? (param.stOf.ulMask >> value & 1) != 0 : param.stOf.ulRest != 0;
    }

    static NextWord name(const NpSmdParam &param)
    {
        return {param.stItem.szName, plain(values_of(param)), true};
    }

    bool names(const NpSmdParam &param, const std::string &word) const
    {
        return Np_SMD_ParamIs(&param, word.c_str()) != 0 ||
               (form_ == NP_FORM_LARGE && param.stItem.ulPromptNo != 0 &&
                word == std::to_string(param.stItem.ulPromptNo));
    }

    // Ends the walk: these can come next.
    bool stop(std::vector<NextWord> words)
    {
        found_ = std::move(words);
        return false;
    }

    bool refuse(const std::string &word)
    {
        return stop({unknown_word(word)});
    }

    std::vector<NextWord> end()
    {
        return {reader_.done() ? line_end() : surplus_word(reader_.take())};
    }

    // The rest of a port behind its type.
    bool port_parts(const std::string &type)
    {
        NpSmdKeyItem item = {};
        for (uint32_t part = 0; Np_SMD_PortPart(type.c_str(), part, &item) == 0; part++) {
            const bool named = item.szName[0] != 0;
            if (named) {
                if (reader_.done()) {
                    return stop({{item.szName, number_of(item).name, true}});
                }
                if (const std::string &word = reader_.take(); word != item.szName) {
                    return refuse(word);
                }
            }
            if (reader_.done()) {
                if (named) {
                    return stop({number_of(item)});
                }
                return stop({{"atm", "", false}, {"ptm", "", false}});
            }
            reader_.take();
        }
        return true;
    }

    bool value(const NpSmdParam &param)
    {
        if (reader_.done()) {
            return stop(value_words(param));
        }
        const std::string &word = reader_.take();
        if (param.stItem.ulType == NP_SMD_PORT) {
            return port_parts(word);
        }
        if (param.stItem.ulType == NP_SMD_SIGNED) {
            if (reader_.done()) {
                return stop({any_of(param)});
            }
            reader_.take();
            return true;
        }
        if (const std::optional<uint32_t> choice = number(param, word)) {
            chosen_[param.stItem.szName] = *choice;
        }
        return true;
    }

    bool pair(const NpSmdParam &param, bool named)
    {
        if (named) {
            if (reader_.done()) {
                return stop({name(param)});
            }
            if (const std::string &word = reader_.take(); !names(param, word)) {
                return refuse(word);
            }
        }
        return value(param);
    }

    // A number, and so many values.
    std::vector<NextWord> counted()
    {
        if (!pair(params_[0], true)) {
            return found_;
        }
        for (uint32_t n = chosen_[params_[0].stItem.szName]; n > 0; n--) {
            if (!pair(params_[1], false)) {
                return found_;
            }
        }
        return end();
    }

    // Pairs from `at` on, each of which may be left out.
    std::vector<NextWord> in_order(size_t at)
    {
        while (!reader_.done()) {
            const std::string &word = reader_.take();
            while (at < params_.size() && !(let_in(params_[at]) && names(params_[at], word))) {
                at++;
            }
            if (at == params_.size()) {
                return {unknown_word(word)};
            }
            if (!value(params_[at])) {
                return found_;
            }
            at++;
        }
        std::vector<NextWord> words;
        for (; at < params_.size(); at++) {
            if (let_in(params_[at])) {
                words.push_back(name(params_[at]));
            }
        }
        words.push_back(line_end());
        return words;
    }

    bool in_menu(const NpSmdParam &param) const
    {
        const NpSmdParam *selector = selector_of(param, params_);
        return selector == nullptr || (selector->bKey != 0 && let_in(param));
    }

    // Pairs in any order up to the end.
    std::vector<NextWord> in_any_order(size_t first)
    {
        while (!reader_.done()) {
            const std::string &word = reader_.take();
            if (word == "end") {
                return end();
            }
            size_t at = first;
            while (at < params_.size() && !(in_menu(params_[at]) && names(params_[at], word))) {
                at++;
            }
            if (at == params_.size()) {
                return {unknown_word(word)};
            }
            if (!value(params_[at]) || !selected(params_[at])) {
                return found_;
            }
        }
        std::vector<NextWord> words;
        for (size_t at = first; at < params_.size(); at++) {
            if (in_menu(params_[at])) {
                words.push_back(name(params_[at]));
            }
        }
        words.push_back({"end", "carries the command out", false});
        return words;
    }

    // The pairs that a value lets in behind it.
    bool selected(const NpSmdParam &selector)
    {
        for (const NpSmdParam &param : params_) {
            if (selector_of(param, params_) == &selector && let_in(param) && !pair(param, true)) {
                return false;
            }
        }
        return true;
    }

    NpSmdForm form_;
    std::vector<NpSmdParam> params_;
    Reader reader_;
    std::map<std::string, uint32_t, std::less<>> chosen_;  // values of parameters, by their name
    std::vector<NextWord> found_;
};

}  // namespace

NextWord line_end()
{
    return {kLineEnd, "", false};
}

NextWord unknown_word(const std::string &word)
{
    return {kNoWord, "\"" + word + "\" is none of the words that can stand in its place", false};
}

NextWord surplus_word(const std::string &word)
{
    return {kNoWord, "the command is complete in front of \"" + word + "\"", false};
}

std::vector<NextWord> param_next_words(NpCliHandler handler, std::span<const std::string> words)
{
    return Walk(handler, words).next();
}

}  // namespace ldsdk::tool
