#include "korvaproservices/CDocument.h"

#include "korvaproservices/Encoding.h"
#include "korvaproservices/ExportFile.h"

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

// Whether there is one element at the top and no text, which the parser does not ask for. `length` bytes of text were
// parsed, and behind them the element that marks their end, which is taken out.
bool CheckTop(pugi::xml_document& xml, std::size_t length)
{
    bool hasRoot = false;
    for (const pugi::xml_node node : xml.children()) {
        const auto offset = static_cast<std::size_t>(node.offset_debug());
        if (node.type() != pugi::node_element)
            return false; // text
        if (offset == length + 1) {
            if (!xml.remove_child(node))
                throw std::bad_alloc();
            return hasRoot;
        }
        if (hasRoot)
            return false;
        hasRoot = true;
    }
    return false; // inside a document type, or at a null character
}

// Whether the text is well-formed. The texts of the tree point into it, and the tree owns it from here on. May raise
// std::bad_alloc.
bool Parse(pugi::xml_document& xml, CExportBytes bytes)
{
    const std::size_t length = bytes.size;
    bytes.AppendEnd();
    const pugi::xml_parse_result parsed =
        xml.load_buffer_inplace_own(bytes.block.release(), bytes.size, kParseOptions, pugi::encoding_utf8);
    if (parsed.status == pugi::status_out_of_memory)
        throw std::bad_alloc();
    if (!parsed)
        return false;
    return CheckTop(xml, length);
}

} // namespace

HRESULT CDocument::Load(LPCWSTR path, CInterfacePtr<CDocument>& loaded)
{
    std::optional<CExportBytes> text;
    const HRESULT read = ReadExportFile(path, text);
    if (FAILED(read))
        return read;
    ConvertToUtf8(*text, RecogniseEncoding(text->View()));
    auto made = CInterfacePtr<CDocument>::Adopt(new CDocument);
    if (!Parse(made->xml, std::move(*text)))
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    loaded = std::move(made);
    return S_OK;
}
