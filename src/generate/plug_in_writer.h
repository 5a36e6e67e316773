#pragma once

#include "generate/generation.h"
#include "generate/message_names.h"
#include "generate/plug_in_model.h"
#include "generate/safe_names.h"
#include "generate/value_literals.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zb::generate {

/// Fills the templates of a language. The files of messages and of transactions are made one by one, so that
/// a large project is never in memory a second time.
class PlugInWriter {
public:
    PlugInWriter(const PlugInModel& model, const Language& language, const CodePage& codePage,
                 const std::string& projectName);

    std::vector<GeneratedFile> files() const;

private:
    void nameAll(const std::string& projectName);
    void nameTransactions();
    /// What is the same wherever a transaction is written.
    void fillReference(TemplateData& data, const std::string& type, std::size_t message) const;
    std::string referenceTo(std::string_view scope, const std::string& type) const;
    void fillProject(const std::string& projectName);
    void fillMessages();
    void fillImports();
    void fillChain(TemplateData& data, std::size_t message) const;
    std::unordered_set<std::size_t> usedMessages() const;
    void fillDispatch();
    void fillFunction(TemplateData& data, std::pair<int, int> place,
                      const std::vector<std::size_t>& messages) const;
    void fillAnswers();
    void fillTransactions();
    void fillSequences();
    /// The data of one element of a list that has a file for each.
    TemplateData elementOf(const std::string& list, std::size_t index) const;
    void fillTransaction(TemplateData& data, std::size_t message) const;
    std::size_t sizeOf(const std::string& list) const;
    GeneratedFile fileOf(const Language::Output& output, const TemplateData& data) const;

    const PlugInModel& model_;
    const Language& language_;
    ValueLiterals literals_;
    std::string package_;
    std::vector<MessageNames> messageNames_;
    std::vector<std::string> receivedNames_;
    std::vector<std::string> sentNames_;
    /// Names that a message and a transaction have in common, lower-cased.
    std::unordered_set<std::string> sharedNames_;
    TemplateData project_;
};

} // namespace zb::generate
