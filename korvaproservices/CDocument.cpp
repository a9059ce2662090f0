#include "korvaproservices/CDocument.h"

#include "korvaproservices/Encoding.h"
#include "korvaproservices/ExportFile.h"
#include "korvaproservices/ResultOf.h"
#include "korvaproservices/TextPosition.h"

#include <algorithm>
#include <new>

namespace {

// Texts with entities resolved and line ends made one; white space alone only
// where it is an element's whole content. Comments, processing instructions and
// the document type leave no node, and an element keeps its first text itself,
// which spares a node. Entities that the document type declares stay unexpanded.
// As for a fragment, text outside of the root element is kept, to be refused.
constexpr unsigned kParseOptions =
    pugi::parse_default | pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata | pugi::parse_fragment;

// Why a text is not well-formed.
struct Fault
{
    const char* text;
    std::size_t offset;          // into the UTF-8 text, bytes
    bool isBehindBlanks = false; // which are no fault
};

// What the parser accepts and XML does not: other than one element at the top. `length` bytes of text were parsed, and
// behind them the element that marks their end, which is taken out.
std::optional<Fault> CheckTop(pugi::xml_document& xml, std::size_t length)
{
    bool hasRoot = false;
    for (const pugi::xml_node node : xml.children()) {
        const auto offset = static_cast<std::size_t>(node.offset_debug());
        if (node.type() != pugi::node_element)
            return Fault{"Text outside of the root element", offset, true};
        if (offset == length + 1) {
            if (!hasRoot)
                return Fault{"No document element found", length};
            if (!xml.remove_child(node))
                throw std::bad_alloc();
            return std::nullopt;
        }
        if (hasRoot)
            return Fault{"More than one root element", offset - 1};
        hasRoot = true;
    }
    return Fault{"The text ends too early", length}; // inside a document type, or at a null character
}

// The texts of the tree point into the bytes, which the tree owns from here on. May raise std::bad_alloc.
std::optional<Fault> Parse(pugi::xml_document& xml, CExportBytes bytes)
{
    const std::size_t length = bytes.size;
    bytes.AppendEnd();
    const pugi::xml_parse_result parsed =
        xml.load_buffer_inplace_own(bytes.block.release(), bytes.size, kParseOptions, pugi::encoding_utf8);
    if (parsed.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    const std::optional<Fault> atTop = CheckTop(xml, length);
    const std::size_t reached = std::min(static_cast<std::size_t>(parsed.offset), length);
    const bool isEarlier = !parsed && (!atTop || reached <= atTop->offset);
    return isEarlier ? Fault{parsed.description(), reached} : atTop;
}

// The export as UTF-8 text; what its encoding is goes into `findings`. May raise std::bad_alloc.
HRESULT ReadText(LPCWSTR path, std::optional<CExportBytes>& text, CLoadFindings& findings)
{
    const HRESULT read = ReadExportFile(path, text);
    if (FAILED(read))
        return read;
    const Encoding encoding = RecogniseEncoding(text->View());
    findings.usedEncoding = NameOf(encoding);
    ConvertToUtf8(*text, encoding);
    findings.declaredEncoding = DeclaredEncoding(text->View());
    return S_OK;
}

// Stores where the fault stands. The parser has overwritten the text, so it is read again. May raise std::bad_alloc.
HRESULT Locate(LPCWSTR path, const Fault& fault, CLoadFindings& findings)
{
    std::optional<CExportBytes> again;
    const HRESULT read = ReadText(path, again, findings);
    if (FAILED(read))
        return read;
    const std::string_view text = again->View();
    std::size_t offset = std::min(fault.offset, text.find('\0')); // which the parser takes for the end
    if (fault.isBehindBlanks)
        offset = text.find_first_not_of(kBlanks, offset);
    findings.position = PositionAt(text, offset);
    return S_OK;
}

} // namespace

HRESULT CDocument::Load(LPCWSTR path, CInterfacePtr<CDocument>& loaded, CLoadFindings& findings)
{
    std::optional<CExportBytes> text;
    const HRESULT read = ReadText(path, text, findings);
    if (FAILED(read))
        return read;
    auto made = CInterfacePtr<CDocument>::Adopt(new CDocument);
    const std::optional<Fault> fault = Parse(made->xml, std::move(*text));
    if (!fault) {
        loaded = std::move(made);
        return S_OK;
    }
    made.Release(); // its memory is wanted
    findings.fault = fault->text;
    ResultOf([&] { return Locate(path, *fault, findings); }); // else the position stays unknown
    return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
}
