#include "symbhost/exports/CSymbolPath.h"

#include "symbkds/resolve/CSymbKorvaAnalyser.h"

CSymbolPath::CSymbolPath(const std::string& name)
{
    CString asked(name.c_str());
    asked.TrimLeft(' ');
    CSymbKorvaAnalyser analyser;
    isPath = name.find('\0') == std::string::npos && analyser.Analyse(asked, 0);
    if (!isPath)
        return;
    const int last = analyser.GetLastIndex();
    for (int item = 0; item <= last; ++item) {
        const CSymbKorvaAnalysedItem& step = analyser.GetItem(item);
        const bool isNumber = item > 0 && item == last && step.hasNumber && step.index == step.name;
        if (item == last && step.hasNumber)
            bit = step.index.View();
        if (isNumber)
            break; // the bit of an element
        if (item > 0 && step.name.IsEmpty())
            text += "[" + std::string(step.index.View()) + "]";
        else
            text += (item > 0 ? "." : "") + std::string(step.name.View());
        ends.push_back(text.size());
    }
    if (StepCount() == 1 && bit && text == *bit)
        bit.reset(); // a number alone is a name
    isPath = !ends.empty() && ends[0] > 0;
}

std::string CSymbolPath::Step(std::size_t step) const
{
    const std::size_t begin = step == 0 ? 0 : ends[step - 1] + (IsIndex(step) ? 0 : 1);
    return text.substr(begin, ends[step] - begin);
}

std::string MendedPath(std::string path)
{
    const std::size_t end = path.find_last_not_of('.') + 1;
    if (end != 0) // a path of dots alone stays: without them it would mean all variables
        path.resize(end);
    const std::size_t open = path.rfind('[');
    if (open != std::string::npos && open + 1 == path.size())
        path.pop_back();
    else if (open != std::string::npos && path.find_first_of("].", open) == std::string::npos)
        path += ']';
    return path;
}
