#include "support/ExportBuilder.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace {

using Names = std::map<std::string, const char*, std::less<>>;

const Names& Properties()
{
    static const Names names = {{"size", "Size"},
                                {"block", "AreaBlock"},
                                {"bit", "ExtractBit"},
                                {"access", "RequestAccessRight"},
                                {"hidden", "IsVariableHidden"},
                                {"indirection", "IndirectionKind"},
                                {"customer", "CustomerString"}};
    return names;
}

const Names& Sections()
{
    static const Names names = {{"IN", "inputParameters"},
                                {"INOUT", "inOutParameters"},
                                {"OUT", "outputParameters"},
                                {"PRIVATE", "privateLocalVariables"},
                                {"PUBLIC", "publicLocalVariables"}};
    return names;
}

constexpr std::string_view kBlanks = " \n\t";

enum class WordForm
{
    Bare,
    Quoted,
    Comment,
    Raw,
    End
};

// Takes a text apart, one word ahead.
class CExportParser
{
public:
    explicit CExportParser(std::string_view text) : whole(text), rest(text) { Advance(); }

    ExportNode Parse()
    {
        ExportNode root{"LocatedSymbolTable"}, dataBlock{"dataBlock"};
        bool wantsDataBlock = true;
        while (form != WordForm::End) {
            if (TakeIf("TYPE"))
                root.children.push_back(ParseType());
            else if (TakeIf("DFB"))
                root.children.push_back(ParseFunctionBlock());
            else if (TakeIf("VAR"))
                dataBlock.children.push_back(ParseMember());
            else if (Is("RAW"))
                root.children.push_back(ParseMember());
            else if (TakeIf("RAWVAR"))
                dataBlock.children.push_back({.text = Take()});
            else if (TakeIf("NODATABLOCK"))
                wantsDataBlock = false;
            else
                Refuse("a declaration is expected");
        }
        if (wantsDataBlock)
            root.children.push_back(std::move(dataBlock));
        return root;
    }

private:
    [[noreturn]] void Refuse(const std::string& reason) const
    {
        const std::string_view read = whole.substr(0, whole.size() - rest.size());
        throw std::runtime_error("line " + std::to_string(1 + std::count(read.begin(), read.end(), '\n')) + ": " +
                                 reason + " at \"" + word + "\"");
    }

    bool Is(std::string_view keyword) const { return form == WordForm::Bare && word == keyword; }
    bool TakeIf(std::string_view keyword) { return Is(keyword) && (Advance(), true); }
    std::string Take()
    {
        std::string taken = word;
        Advance();
        return taken;
    }
    std::string TakeText(const char* what)
    {
        if (form != WordForm::Bare && form != WordForm::Quoted)
            Refuse(std::string(what) + " is expected");
        return Take();
    }

    char Pop()
    {
        const char first = rest.front();
        rest.remove_prefix(1);
        return first;
    }

    void Advance()
    {
        const bool raw = Is("RAW") || Is("RAWVAR");
        rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
        word.clear();
        form = rest.empty()           ? WordForm::End
               : raw                  ? WordForm::Raw
               : rest.front() == '"'  ? WordForm::Quoted
               : rest.front() == '\'' ? WordForm::Comment
                                      : WordForm::Bare;
        if (form == WordForm::Quoted || form == WordForm::Comment)
            return ReadQuoted(Pop());
        int open = 0; // blanks between brackets belong to the word
        while (!rest.empty() && (raw ? rest.front() != '\n' : open > 0 || kBlanks.find(rest.front()) == kBlanks.npos)) {
            open += (rest.front() == '[') - (rest.front() == ']');
            word += Pop();
        }
    }

    void ReadQuoted(char quote)
    {
        while (!rest.empty()) {
            const char next = Pop();
            if (next == quote && !rest.starts_with(quote))
                return;
            if (next == quote)
                Pop();
            word += next;
        }
        Refuse("a quote is not closed");
    }

    std::string TakeTypeName()
    {
        std::string name = TakeText("a type");
        while (Is("OF") || Is("Of") || Is("oF") || Is("of")) {
            name += " " + Take();
            name += " " + TakeText("an element type");
        }
        return name;
    }

    // Takes the END of a declaration, which another one implies.
    bool AtEnd()
    {
        return TakeIf("END") || form == WordForm::End || Is("TYPE") || Is("DFB") || Is("VAR") || Is("RAWVAR") ||
               Is("NODATABLOCK");
    }

    ExportNode ParseType()
    {
        ExportNode source{"DDTSource", {{"DDTName", TakeText("a name")}}};
        if (!Is("STRUCT")) {
            TakeIf("ARRAY");
            source.children.push_back({.tag = "array", .text = TakeTypeName()});
        }
        if (TakeIf("STRUCT")) {
            source.children.push_back({"structure"});
            while (!AtEnd())
                source.children.back().children.push_back(ParseMember());
        }
        return source;
    }

    ExportNode ParseFunctionBlock()
    {
        ExportNode source{"FBSource", {{"nameOfFBType", TakeText("a name")}}};
        while (!AtEnd()) {
            const auto section = Sections().find(word);
            if (form == WordForm::Bare && section != Sections().end()) {
                Advance();
                source.children.push_back({section->second});
            } else if (source.children.empty()) {
                Refuse("a section is expected");
            } else {
                source.children.back().children.push_back(ParseMember());
            }
        }
        return source;
    }

    // A variable, parameter or member, or raw text in its place.
    ExportNode ParseMember()
    {
        if (TakeIf("RAW"))
            return {.text = Take()};
        ExportNode node{"variables", {{"name", TakeText("a name")}}};
        node.attributes.emplace_back("typeName", TakeTypeName());
        while (ParseProperty(node)) {}
        return node;
    }

    bool ParseProperty(ExportNode& node)
    {
        if (form == WordForm::Comment) {
            node.children.push_back({.tag = "comment", .text = Take()});
            return true;
        }
        if (form != WordForm::Bare)
            return false;
        if (TakeIf("AT")) {
            node.attributes.emplace_back("topologicalAddress", TakeText("an address"));
            return true;
        }
        std::string name;
        if (word.starts_with('@')) {
            name = "AreaOffset";
            word.erase(0, 1);
        } else if (const auto property = Properties().find(word); property != Properties().end()) {
            name = property->second;
            Advance();
        } else if (TakeIf("attr")) {
            name = TakeText("a name");
        } else {
            return false;
        }
        node.children.push_back({"attribute", {{"name", name}, {"value", TakeText("a value")}}});
        return true;
    }

    std::string_view whole, rest;
    WordForm form = WordForm::End;
    std::string word;
};

// Line ends too, which a reader would make blanks of inside an attribute.
std::string EscapeXml(std::string_view text)
{
    std::string escaped;
    for (char character : text) {
        if (std::string_view("&<>\"\n\r\t").find(character) == std::string_view::npos)
            escaped += character;
        else
            escaped.append("&#").append(std::to_string(static_cast<int>(character))).append(";");
    }
    return escaped;
}

std::string ToXml(const ExportNode& node)
{
    if (node.tag.empty())
        return node.text;
    std::string xml = "<" + node.tag;
    for (const auto& [name, value] : node.attributes)
        xml += " " + name + "=\"" + EscapeXml(value) + "\"";
    xml += ">" + EscapeXml(node.text);
    for (const ExportNode& child : node.children)
        xml += ToXml(child);
    return xml + "</" + node.tag + ">";
}

} // namespace

ExportNode ParseExport(std::string_view text)
{
    return CExportParser(text).Parse();
}

std::string WriteExport(const CTemporaryFolder& folder, std::string_view text, std::string_view name)
{
    return folder.WriteFile(name, ToXml(ParseExport(text)));
}
