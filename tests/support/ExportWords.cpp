#include "support/ExportWords.h"

#include <stdexcept>

namespace {

bool IsBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\t';
}

} // namespace

Word CWordReader::Take()
{
    Word taken = word;
    Advance();
    return taken;
}

bool CWordReader::TakeIf(std::string_view keyword)
{
    bool matches = word.Is(keyword);
    if (matches)
        Advance();
    return matches;
}

char CWordReader::Pop()
{
    char first = rest.front();
    rest.remove_prefix(1);
    line += first == '\n';
    return first;
}

void CWordReader::Advance()
{
    bool raw = word.Is("RAW") || word.Is("RAWVAR");
    while (!rest.empty() && IsBlank(rest.front()))
        Pop();
    word = {WordForm::kEnd, "", line};
    if (rest.empty())
        return;
    if (raw)
        ReadRaw();
    else if (rest.front() == '"')
        ReadQuoted(WordForm::kQuoted);
    else if (rest.front() == '\'')
        ReadQuoted(WordForm::kComment);
    else
        ReadBare();
}

void CWordReader::ReadRaw()
{
    word.form = WordForm::kRaw;
    while (!rest.empty() && rest.front() != '\n')
        word.text += Pop();
}

void CWordReader::ReadQuoted(WordForm form)
{
    word.form = form;
    char quote = Pop();
    for (;;) {
        if (rest.empty())
            throw std::runtime_error("line " + std::to_string(word.line) + ": a quote is not closed");
        char next = Pop();
        if (next == quote && (rest.empty() || rest.front() != quote))
            return;
        if (next == quote)
            Pop();
        word.text += next;
    }
}

// Blanks between brackets belong to the word.
void CWordReader::ReadBare()
{
    word.form = WordForm::kBare;
    int open = 0;
    while (!rest.empty() && (open > 0 || !IsBlank(rest.front()))) {
        open += (rest.front() == '[') - (rest.front() == ']');
        word.text += Pop();
    }
}
