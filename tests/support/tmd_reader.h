#pragma once

#include <memory>
#include <string>

namespace zb::test {

// A TMD file as read by an independent library.
class TmdReader {
public:
    explicit TmdReader(const std::string& bytes);
    ~TmdReader();

    // Why the bytes are not a document; empty when they are.
    const std::string& fault() const { return fault_; }
    // The violations of the schema at that path; empty for none.
    std::string schemaFault(const std::string& schemaPath) const;
    // The string value of an XPath expression.
    std::string value(const std::string& xpath) const;

private:
    struct Document;
    std::unique_ptr<Document> document_;
    std::string fault_;
};

} // namespace zb::test
