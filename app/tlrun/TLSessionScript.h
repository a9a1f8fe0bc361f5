#pragma once

#include <string>
#include <vector>

namespace TMObjects {

// One line of a session script: a verb and its words. Words are separated by blanks; double
// quotes anywhere in a word hold blanks, and inside them \" and \\ stand for a quote and a
// backslash (\n for a line break), so that `"POINT (1 2)"` and `name="Mill Road"` are one word
// each.
struct TLSessionCommand {
    int line = 0;
    std::string text;  // the line as written, trimmed
    std::string verb;
    std::vector<std::string> words;   // after the verb
    std::vector<std::size_t> starts;  // where each word begins in `text`

    // Everything after the first `skip` words: the one quoted word when that is all there is,
    // else the rest of the line as written, trimmed. Typed lines and expected texts are read so,
    // so that they need quotes only where their blanks matter.
    std::string Rest(std::size_t skip) const;

    // The word at `index` read as a number; false with the reason when there is none.
    bool Number(std::size_t index, double& value, std::string& error) const;
    bool Integer(std::size_t index, int& value, std::string& error) const;
    // "on" or "off".
    bool Switch(std::size_t index, bool& value, std::string& error) const;
    // Between `least` and `most` words after the verb; false with the usage otherwise.
    bool Expect(std::size_t least, std::size_t most, const char* usage, std::string& error) const;
    // The word at `index` is one of `choices` (given as "a|b|c"); false with the usage otherwise.
    bool Choice(std::size_t index, const char* choices, const char* usage,
                std::string& error) const;
};

// A session script (.tls): UTF-8 text, one command a line. A line that begins with "#" is a
// comment; it is kept as a command with the verb "#", so that the transcript shows it in its
// place. Blank lines are skipped.
class TLSessionScript {
public:
    // False with the reason in `error` as "FILE:LINE: ...", or "FILE: cannot read the script"
    // for a folder, a file without permission to read, or one that holds no command.
    bool Load(const std::string& path, std::string& error);
    // False with the reason as "LINE: ...".
    bool Parse(const std::string& text, std::string& error);

    const std::string& Path() const { return mPath; }
    const std::vector<TLSessionCommand>& Commands() const { return mCommands; }
    // Puts commands before the script's own (the data named on the command line), as line 0.
    void Prepend(const std::vector<TLSessionCommand>& commands);

    // A command made of words, as if it had been written on line `line`.
    static TLSessionCommand Make(int line, const std::vector<std::string>& words);

    // `text` on one line: control characters (a newline a quoted word brought in) are written as
    // escapes, so that a message is one line of the standard error and the last is "FILE:LINE".
    static std::string Escaped(const std::string& text);

private:
    static bool split(TLSessionCommand& command, std::string& error);
    std::string mPath;
    std::vector<TLSessionCommand> mCommands;
};

}  // namespace TMObjects
