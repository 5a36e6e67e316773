#pragma once

#include <memory>
#include <string>

namespace zb::test {

// A TMD file as a library sees it that had no part in writing it.
class TmdReader {
public:
    explicit TmdReader(const std::string& bytes);
    ~TmdReader();

    // What keeps the bytes from being a document; empty for none.
    const std::string& fault() const { return fault_; }
    // What is against the schema at that path; empty for none.
    std::string schemaFault(const std::string& schemaPath) const;
    // The string value of an XPath expression.
    std::string value(const std::string& xpath) const;

private:
    struct Document;
    std::unique_ptr<Document> document_;
    std::string fault_;
};

} // namespace zb::test
