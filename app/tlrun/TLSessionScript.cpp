#include "TLSessionScript.h"

#include <cmath>
#include <cstdlib>
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

// Reads the quoted word that begins at `at`; `at` ends after the closing quote.
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

}  // namespace

std::string TLSessionCommand::Rest(std::size_t skip) const {
    if (skip >= words.size()) return std::string();
    const std::string rest = trimmed(text.substr(starts[skip]));
    if (!rest.empty() && rest[0] == '"' && skip + 1 == words.size()) return words[skip];
    return rest;
}

bool TLSessionCommand::Number(std::size_t index, double& value, std::string& error) const {
    const std::string& word = index < words.size() ? words[index] : std::string();
    char* end = nullptr;
    value = std::strtod(word.c_str(), &end);
    if (word.empty() || *end != '\0' || !std::isfinite(value)) {
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

bool TLSessionScript::Load(const std::string& path, std::string& error) {
    mPath = path;
    std::ifstream in(path);
    if (!in) {
        error = "cannot read the script " + path;
        return false;
    }
    std::ostringstream text;
    text << in.rdbuf();
    if (!Parse(text.str(), error)) {
        error = path + ":" + error;
        return false;
    }
    return true;
}

bool TLSessionScript::Parse(const std::string& text, std::string& error) {
    mCommands.clear();
    std::istringstream lines(text);
    std::string raw;
    for (int number = 1; std::getline(lines, raw); ++number) {
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
        if (text[at] == '"') {
            if (!quoted(text, at, word)) {
                error = "a quote is not closed";
                return false;
            }
        } else {
            while (at < text.size() && !blank(text[at])) word += text[at++];
        }
        words.push_back(word);
    }
    command.verb = words.front();
    command.words.assign(words.begin() + 1, words.end());
    command.starts.assign(starts.begin() + 1, starts.end());
    return true;
}

}  // namespace TMObjects
