#include "support/ExportBuilder.h"

#include "support/ExportWords.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>

namespace {

struct Keyword
{
    const char* word;
    const char* name;
};

constexpr Keyword kProperties[] = {{"size", "Size"},
                                   {"block", "AreaBlock"},
                                   {"bit", "ExtractBit"},
                                   {"access", "RequestAccessRight"},
                                   {"hidden", "IsVariableHidden"},
                                   {"indirection", "IndirectionKind"},
                                   {"customer", "CustomerString"}};

constexpr Keyword kSections[] = {{"IN", "inputParameters"},
                                 {"INOUT", "inOutParameters"},
                                 {"OUT", "outputParameters"},
                                 {"PRIVATE", "privateLocalVariables"},
                                 {"PUBLIC", "publicLocalVariables"}};

template <std::size_t kCount>
const Keyword* FindKeyword(const Keyword (&table)[kCount], const Word& word)
{
    const Keyword* found = std::find_if(std::begin(table), std::end(table),
                                        [&word](const Keyword& keyword) { return word.Is(keyword.word); });
    return found == std::end(table) ? nullptr : found;
}

class CExportParser
{
public:
    explicit CExportParser(std::string_view text) : words(text) {}

    ExportNode Parse()
    {
        ExportNode root{"LocatedSymbolTable", {}, "", {}};
        ExportNode dataBlock{"dataBlock", {}, "", {}};
        bool wantsDataBlock = true;
        while (words.Peek().form != WordForm::kEnd) {
            if (words.TakeIf("TYPE"))
                root.children.push_back(ParseType());
            else if (words.TakeIf("DFB"))
                root.children.push_back(ParseFunctionBlock());
            else if (words.TakeIf("VAR"))
                dataBlock.children.push_back(ParseVariable());
            else if (words.TakeIf("RAW"))
                root.children.push_back(TakeRaw());
            else if (words.TakeIf("RAWVAR"))
                dataBlock.children.push_back(TakeRaw());
            else if (words.TakeIf("NODATABLOCK"))
                wantsDataBlock = false;
            else
                Refuse("a declaration is expected");
        }
        if (wantsDataBlock)
            root.children.push_back(std::move(dataBlock));
        else if (!dataBlock.children.empty())
            Refuse("variables stand beside NODATABLOCK");
        return root;
    }

private:
    [[noreturn]] void Refuse(const std::string& reason) const
    {
        throw std::runtime_error("line " + std::to_string(words.Peek().line) + ": " + reason + " at \"" +
                                 words.Peek().text + "\"");
    }

    ExportNode TakeRaw() { return {"", {}, words.Take().text, {}}; }

    std::string TakeText(const char* what)
    {
        WordForm form = words.Peek().form;
        if (form != WordForm::kBare && form != WordForm::kQuoted)
            Refuse(std::string(what) + " is expected");
        return words.Take().text;
    }

    static bool IsOf(const Word& word)
    {
        return word.form == WordForm::kBare && word.text.size() == 2 && std::toupper(word.text[0]) == 'O' &&
               std::toupper(word.text[1]) == 'F';
    }

    std::string TakeTypeName()
    {
        std::string name = TakeText("a type");
        while (IsOf(words.Peek())) {
            name += " " + words.Take().text;
            name += " " + TakeText("an element type");
        }
        return name;
    }

    bool AtDeclaration() const
    {
        static constexpr std::array kWords = {"TYPE", "DFB", "VAR", "RAWVAR", "NODATABLOCK"};
        const Word& next = words.Peek();
        return next.form == WordForm::kEnd ||
               std::any_of(kWords.begin(), kWords.end(), [&next](const char* word) { return next.Is(word); });
    }

    ExportNode ParseType()
    {
        ExportNode source{"DDTSource", {{"DDTName", TakeText("a name")}}, "", {}};
        if (words.TakeIf("STRUCT")) {
            ExportNode structure{"structure", {}, "", {}};
            while (!words.TakeIf("END") && !AtDeclaration())
                structure.children.push_back(words.TakeIf("RAW") ? TakeRaw() : ParseVariable());
            source.children.push_back(std::move(structure));
        } else {
            words.TakeIf("ARRAY");
            source.children.push_back({"array", {}, TakeTypeName(), {}});
        }
        return source;
    }

    ExportNode ParseFunctionBlock()
    {
        ExportNode source{"FBSource", {{"nameOfFBType", TakeText("a name")}}, "", {}};
        std::vector<ExportNode>* open = &source.children;
        while (!words.TakeIf("END") && !AtDeclaration()) {
            if (const Keyword* section = FindKeyword(kSections, words.Peek())) {
                words.Take();
                source.children.push_back({section->name, {}, "", {}});
                open = &source.children.back().children;
            } else if (words.TakeIf("RAW")) {
                open->push_back(TakeRaw());
            } else if (open == &source.children) {
                Refuse("a section is expected");
            } else {
                open->push_back(ParseVariable());
            }
        }
        return source;
    }

    ExportNode ParseVariable()
    {
        std::string name = TakeText("a name");
        ExportNode node{"variables", {{"name", std::move(name)}, {"typeName", TakeTypeName()}}, "", {}};
        while (ParseProperty(node)) {}
        return node;
    }

    bool ParseProperty(ExportNode& node)
    {
        if (words.Peek().form == WordForm::kComment) {
            node.children.push_back({"comment", {}, words.Take().text, {}});
        } else if (words.Peek().form == WordForm::kBare && words.Peek().text.starts_with('@')) {
            AddProperty(node, "AreaOffset", words.Take().text.substr(1));
        } else if (const Keyword* property = FindKeyword(kProperties, words.Peek())) {
            words.Take();
            AddProperty(node, property->name, TakeText("a value"));
        } else if (words.TakeIf("attr")) {
            std::string name = TakeText("a name");
            AddProperty(node, name, TakeText("a value"));
        } else if (words.TakeIf("AT")) {
            node.attributes.emplace_back("topologicalAddress", TakeText("an address"));
        } else {
            return false;
        }
        return true;
    }

    static void AddProperty(ExportNode& node, const std::string& name, const std::string& value)
    {
        node.children.push_back({"attribute", {{"name", name}, {"value", value}}, "", {}});
    }

    CWordReader words;
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

} // namespace

ExportNode ParseExport(std::string_view text)
{
    return CExportParser(text).Parse();
}

std::string ToXml(const ExportNode& node)
{
    if (node.tag.empty())
        return node.text;
    std::string xml = "<" + node.tag;
    for (const auto& [name, value] : node.attributes)
        xml += " " + name + "=\"" + EscapeXml(value) + "\"";
    if (node.text.empty() && node.children.empty())
        return xml + "/>";
    xml += ">" + EscapeXml(node.text);
    for (const ExportNode& child : node.children)
        xml += ToXml(child);
    return xml + "</" + node.tag + ">";
}

std::string BuildExport(std::string_view text)
{
    return ToXml(ParseExport(text)) + "\n";
}

std::string WriteExport(const CTemporaryFolder& folder, std::string_view text, std::string_view name)
{
    return folder.WriteFile(name, BuildExport(text));
}
