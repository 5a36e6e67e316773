#include "support/tmd_reader.h"

#include <libxml/parser.h>
#include <libxml/relaxng.h>
#include <libxml/xmlerror.h>
#include <libxml/xpath.h>

namespace zb::test {

namespace {

template<auto Release>
struct Releaser {
    template<typename T>
    void operator()(T* resource) const {
        Release(resource);
    }
};
template<typename T, auto Release>
using Owned = std::unique_ptr<T, Releaser<Release>>;

void freeText(xmlChar* text) {
    xmlFree(text);
}

void collect(void* text, xmlErrorPtr error) {
    *static_cast<std::string*>(text) += error->message;
}

// Errors are written to the text during the lifetime of this object.
class Listening {
public:
    explicit Listening(std::string& text) { xmlSetStructuredErrorFunc(&text, collect); }
    ~Listening() { xmlSetStructuredErrorFunc(nullptr, nullptr); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
};

} // namespace

struct TmdReader::Document {
    Owned<xmlDoc, xmlFreeDoc> tree;
};

TmdReader::TmdReader(const std::string& bytes) : document_(std::make_unique<Document>()) {
    const Listening listening(fault_);
    document_->tree.reset(xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), "tmd", nullptr,
                                        XML_PARSE_NONET | XML_PARSE_HUGE));
    if (!document_->tree && fault_.empty())
        fault_ = "no document";
}

TmdReader::~TmdReader() = default;

std::string TmdReader::schemaFault(const std::string& schemaPath) const {
    std::string faults;
    const Listening listening(faults);
    const Owned<xmlRelaxNGParserCtxt, xmlRelaxNGFreeParserCtxt> parser(
        xmlRelaxNGNewParserCtxt(schemaPath.c_str()));
    const Owned<xmlRelaxNG, xmlRelaxNGFree> schema(xmlRelaxNGParse(parser.get()));
    if (!schema)
        return "no schema: " + faults;
    const Owned<xmlRelaxNGValidCtxt, xmlRelaxNGFreeValidCtxt> validator(xmlRelaxNGNewValidCtxt(schema.get()));
    xmlRelaxNGSetValidStructuredErrors(validator.get(), collect, &faults);
    const int status = xmlRelaxNGValidateDoc(validator.get(), document_->tree.get());
    return status == 0 ? std::string() : "not valid: " + faults;
}

std::string TmdReader::value(const std::string& xpath) const {
    const Owned<xmlXPathContext, xmlXPathFreeContext> context(xmlXPathNewContext(document_->tree.get()));
    const Owned<xmlXPathObject, xmlXPathFreeObject> found(
        xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(xpath.c_str()), context.get()));
    if (!found)
        return "no XPath";
    const Owned<xmlChar, freeText> text(xmlXPathCastToString(found.get()));
    return reinterpret_cast<const char*>(text.get());
}

} // namespace zb::test
