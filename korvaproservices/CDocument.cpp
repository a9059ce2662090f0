#include "korvaproservices/CDocument.h"
#include "korvaproservices/ExportFile.h"
#include "korvaproservices/Utf16.h"

namespace {

// Texts with entities resolved and line ends made one; white space alone only
// where it is an element's whole content. Comments, processing instructions and
// the document type leave no node, and an element keeps its first text itself,
// which spares a node. Entities that the document type declares stay unexpanded.
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata_single | pugi::parse_embed_pcdata;

// The texts of the tree point into the bytes, which the tree owns from here on.
HRESULT Parse(pugi::xml_document& xml, CExportBytes bytes, pugi::xml_encoding encoding)
{
    const pugi::xml_parse_result parsed =
        xml.load_buffer_inplace_own(bytes.block.release(), bytes.size, kParseOptions, encoding);
    if (parsed.status == pugi::status_out_of_memory)
        return E_OUTOFMEMORY;
    // The parser accepts several root elements; XML does not.
    if (!parsed || xml.first_child().next_sibling())
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    return S_OK;
}

} // namespace

HRESULT CDocument::Load(LPCWSTR path, CInterfacePtr<CDocument>& loaded)
{
    std::optional<CExportBytes> bytes;
    const HRESULT read = ReadExportFile(path, bytes);
    if (FAILED(read))
        return read;
    const Utf16Result utf16 = ConvertUtf16(*bytes);
    if (utf16 == Utf16Result::malformed)
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    auto made = CInterfacePtr<CDocument>::Adopt(new CDocument);
    // After the conversion the declared encoding is wrong; otherwise the parser finds it out.
    const pugi::xml_encoding encoding = utf16 == Utf16Result::converted ? pugi::encoding_utf8 : pugi::encoding_auto;
    const HRESULT parsed = Parse(made->xml, std::move(*bytes), encoding);
    if (SUCCEEDED(parsed))
        loaded = std::move(made);
    return parsed;
}
