// The words of an export's text.
#pragma once

#include <string>
#include <string_view>

enum class WordForm
{
    kBare,
    kQuoted,
    kComment,
    kRaw,
    kEnd
};

struct Word
{
    WordForm form;
    std::string text;
    int line;

    bool Is(std::string_view keyword) const { return form == WordForm::kBare && text == keyword; }
};

// Takes a text apart, one word ahead. Throws std::runtime_error for a quote that is not closed.
class CWordReader
{
public:
    explicit CWordReader(std::string_view text) : rest(text) { Advance(); }

    const Word& Peek() const { return word; }
    Word Take();
    // Takes the word if it is this keyword.
    bool TakeIf(std::string_view keyword);

private:
    char Pop();
    void Advance();
    void ReadRaw();
    void ReadQuoted(WordForm form);
    void ReadBare();

    std::string_view rest;
    int line = 1;
    Word word{WordForm::kEnd, "", 1};
};
