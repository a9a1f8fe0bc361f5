#include "TLSessionScript.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace TMObjects {

namespace {

std::string trimmed(const std::string& s) {
    const std::size_t first = s.find_first_not_of(" \t\r");
    if (first == std::string::npos) return std::string();
    const std::size_t last = s.find_last_not_of(" \t\r");
    return s.substr(first, last - first + 1);
}

bool blank(char c) {
    return c == ' ' || c == '\t';
}

// Reads the quoted stretch that begins at `at` into `word`; `at` ends after the closing quote.
bool quoted(const std::string& text, std::size_t& at, std::string& word) {
    for (++at; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            ++at;
            return true;
        }
        if (c == '\\' && at + 1 < text.size()) {
            const char next = text[++at];
            word += next == 'n' ? '\n' : next;
            continue;
        }
        word += c;
    }
    return false;
}

// Whether the bytes are well-formed UTF-8: texts go to the tools as wide strings, and a broken
// sequence would reach them as something the script never said.
bool validUtf8(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t follow = lead < 0x80             ? 0
                                   : (lead & 0xE0) == 0xC0 ? 1
                                   : (lead & 0xF0) == 0xE0 ? 2
                                   : (lead & 0xF8) == 0xF0 ? 3
                                                           : 4;
        if (follow == 4 || i + follow >= text.size()) return false;
        for (std::size_t k = 0; k < follow; ++k)
            if ((static_cast<unsigned char>(text[++i]) & 0xC0) != 0x80) return false;
    }
    return true;
}

std::string quote(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t\"\\") == std::string::npos) return word;
    std::string text = "\"";
    for (char c : word) {
        if (c == '"' || c == '\\') text += '\\';
        text += c;
    }
    return text + "\"";
}

}  // namespace

std::string TLSessionCommand::Rest(std::size_t skip) const {
    if (skip >= words.size()) return std::string();
    const std::string rest = trimmed(text.substr(starts[skip]));
    if (!rest.empty() && rest[0] == '"' && skip + 1 == words.size() && rest.back() == '"')
        return words[skip];
    return rest;
}

bool TLSessionCommand::Number(std::size_t index, double& value, std::string& error) const {
    const std::string& word = index < words.size() ? words[index] : std::string();
    // Read without regard to the locale, which the toolkit sets from the environment.
    const char* begin = word.data();
    const char* end = word.data() + word.size();
    if (begin != end && *begin == '+') ++begin;
    const auto [stop, failed] = std::from_chars(begin, end, value);
    if (word.empty() || failed != std::errc() || stop != end || !std::isfinite(value)) {
        error = "\"" + word + "\" is no number";
        return false;
    }
    return true;
}

bool TLSessionCommand::Integer(std::size_t index, int& value, std::string& error) const {
    double number = 0;
    if (!Number(index, number, error)) return false;
    if (number != std::floor(number) || std::fabs(number) > 2e9) {
        error = "\"" + words[index] + "\" is no whole number";
        return false;
    }
    value = int(number);
    return true;
}

bool TLSessionCommand::Switch(std::size_t index, bool& value, std::string& error) const {
    const std::string word = index < words.size() ? words[index] : std::string();
    if (word != "on" && word != "off") {
        error = "expected on or off, not \"" + word + "\"";
        return false;
    }
    value = word == "on";
    return true;
}

bool TLSessionCommand::Expect(std::size_t least, std::size_t most, const char* usage,
                              std::string& error) const {
    if (words.size() >= least && words.size() <= most) return true;
    error = std::string("usage: ") + usage;
    return false;
}

bool TLSessionCommand::Choice(std::size_t index, const char* choices, const char* usage,
                              std::string& error) const {
    const std::string word = index < words.size() ? words[index] : std::string();
    std::istringstream list(choices);
    for (std::string choice; std::getline(list, choice, '|');)
        if (word == choice) return true;
    error = std::string("usage: ") + usage;
    return false;
}

bool TLSessionScript::Load(const std::string& path, std::string& error) {
    mPath = path;
    // A folder opens as a stream that reads nothing: a script that runs nothing must not pass.
    std::error_code failed;
    std::ifstream in;
    if (std::filesystem::is_regular_file(path, failed)) in.open(path, std::ios::binary);
    std::ostringstream text;
    if (in) text << in.rdbuf();
    if (!in.is_open() || in.bad()) {
        error = path + ": cannot read the script";
        return false;
    }
    if (!Parse(text.str(), error)) {
        error = path + ":" + error;
        return false;
    }
    const bool commands = std::any_of(mCommands.begin(), mCommands.end(),
                                      [](const TLSessionCommand& c) { return c.verb != "#"; });
    if (!commands) {
        error = path + ": cannot read the script: it holds no command";
        return false;
    }
    return true;
}

std::string TLSessionScript::Escaped(const std::string& text) {
    static const char* const hex = "0123456789abcdef";
    std::string line;
    line.reserve(text.size());
    for (char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else if (c == '\t')
            line += "\\t";
        else if (byte < 0x20 || byte == 0x7F)
            line += std::string("\\x") + hex[byte >> 4] + hex[byte & 15];
        else
            line += c;
    }
    return line;
}

bool TLSessionScript::Parse(const std::string& text, std::string& error) {
    mCommands.clear();
    std::istringstream lines(text);
    std::string raw;
    for (int number = 1; std::getline(lines, raw); ++number) {
        // A byte order mark some editors write is no part of the first command.
        if (number == 1 && raw.compare(0, 3, "\xEF\xBB\xBF") == 0) raw.erase(0, 3);
        if (!validUtf8(raw)) {
            error = std::to_string(number) + ": cannot read the script: the line is not UTF-8 text";
            return false;
        }
        const std::string line = trimmed(raw);
        if (line.empty()) continue;
        TLSessionCommand command;
        command.line = number;
        command.text = line;
        if (line[0] == '#') {
            command.verb = "#";
            mCommands.push_back(std::move(command));
            continue;
        }
        if (!split(command, error)) {
            error = std::to_string(number) + ": " + error;
            return false;
        }
        mCommands.push_back(std::move(command));
    }
    return true;
}

void TLSessionScript::Prepend(const std::vector<TLSessionCommand>& commands) {
    mCommands.insert(mCommands.begin(), commands.begin(), commands.end());
}

TLSessionCommand TLSessionScript::Make(int line, const std::vector<std::string>& words) {
    TLSessionCommand command;
    command.line = line;
    for (const std::string& word : words) {
        if (!command.text.empty()) command.text += ' ';
        command.starts.push_back(command.text.size());
        command.text += quote(word);
    }
    command.verb = words.empty() ? std::string() : words.front();
    if (!words.empty()) {
        command.words.assign(words.begin() + 1, words.end());
        command.starts.erase(command.starts.begin());
    }
    return command;
}

bool TLSessionScript::split(TLSessionCommand& command, std::string& error) {
    const std::string& text = command.text;
    std::vector<std::string> words;
    std::vector<std::size_t> starts;
    std::size_t at = 0;
    while (at < text.size()) {
        while (at < text.size() && blank(text[at])) ++at;
        if (at >= text.size()) break;
        starts.push_back(at);
        std::string word;
        while (at < text.size() && !blank(text[at])) {
            if (text[at] != '"') {
                word += text[at++];
            } else if (!quoted(text, at, word)) {
                error = "a quote is not closed";
                return false;
            }
        }
        words.push_back(word);
    }
    command.verb = words.front();
    command.words.assign(words.begin() + 1, words.end());
    command.starts.assign(starts.begin() + 1, starts.end());
    return true;
}

}  // namespace TMObjects
