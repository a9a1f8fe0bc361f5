#pragma once

#include <string>
#include <vector>

namespace TMObjects {

// One line of a session script: a verb and its words. Words are separated by blanks; a word in
// double quotes may hold blanks, and \" \\ \n inside it stand for a quote, a backslash and a line
// break.
struct TLSessionCommand {
    int line = 0;
    std::string text;  // the line as written, trimmed
    std::string verb;
    std::vector<std::string> words;   // after the verb
    std::vector<std::size_t> starts;  // where each word begins in `text`

    // Everything after the first `skip` words: the one quoted word when it begins with a quote,
    // else the rest of the line as written, trimmed. Typed lines and expected texts are read so,
    // so that they need no quotes unless their blanks matter.
    std::string Rest(std::size_t skip) const;

    // The word at `index` read as a number; false with the reason when there is none.
    bool Number(std::size_t index, double& value, std::string& error) const;
    bool Integer(std::size_t index, int& value, std::string& error) const;
    // "on" or "off".
    bool Switch(std::size_t index, bool& value, std::string& error) const;
    // Between `least` and `most` words after the verb; false with the reason otherwise.
    bool Expect(std::size_t least, std::size_t most, const char* usage, std::string& error) const;
};

// A session script (.tls): one command a line. A line that begins with "#" is a comment; it is
// kept as a command with the verb "#", so that the transcript shows it in its place. Blank lines
// are skipped.
class TLSessionScript {
public:
    // False with the reason (file and line) in `error`.
    bool Load(const std::string& path, std::string& error);
    bool Parse(const std::string& text, std::string& error);

    const std::string& Path() const { return mPath; }
    const std::vector<TLSessionCommand>& Commands() const { return mCommands; }

private:
    static bool split(TLSessionCommand& command, std::string& error);
    std::string mPath;
    std::vector<TLSessionCommand> mCommands;
};

}  // namespace TMObjects
