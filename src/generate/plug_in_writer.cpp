#include "generate/plug_in_writer.h"

#include "generate/message_data.h"
#include "generate/received_data.h"
#include "generate/sent_data.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zb::generate {

namespace {

/// Whether a message with the values of its definition has its own keys.
bool hasFittingKeys(const std::vector<ItemTree>& items) {
    return std::all_of(items.begin(), items.end(), [](const ItemTree& item) {
        return (!item.isKey || item.isList() || hasFittingValue(item)) &&
               (item.isList() && !item.isFixed ? true : hasFittingKeys(item.members));
    });
}

} // namespace

PlugInWriter::PlugInWriter(const PlugInModel& model, const Language& language, const CodePage& codePage,
                           const std::string& projectName)
    : model_(model), language_(language), literals_(language, codePage) {
    nameAll(projectName);
    fillProject(projectName);
    fillMessages();
    fillImports();
    fillDispatch();
    fillAnswers();
    fillTransactions();
    fillSequences();
}

void PlugInWriter::nameAll(const std::string& projectName) {
    SafeNames packages(language_.reservedWords());
    for (const std::string& name : language_.reservedPackages())
        packages.reserve(name);
    std::string package =
        language_.hasUpperFields() ? typeName(projectName, "Project") : fieldName(projectName, "project");
    package_ = packages.take(language_.hasLowerPackages() ? lowered(std::move(package)) : std::move(package));
    SafeNames types(language_.reservedWords());
    types.reserve(package_);
    for (const auto& message : model_.messages()) {
        const std::string type = types.take(typeName(message->record.getName(), "Message"));
        messageNames_.push_back(namesOf(message->shape, type, language_));
    }
    nameTransactions();
    for (MessageNames& names : messageNames_)
        names.ref = referenceTo(language_.word("messagesScope"), names.type);
}

void PlugInWriter::nameTransactions() {
    SafeNames transactions(language_.reservedWords());
    transactions.reserve(package_);
    // A handler or a sender of this name is in every plug-in.
    for (const char* name : {"Received", "Deviation", "Unknown", "Aborted", "Timeout", "Error", "StrayReply",
                             "Primary", "Reply"})
        transactions.reserve(name);
    for (const ReceivedTransaction& received : model_.received())
        receivedNames_.push_back(transactions.take(typeName(received.record->Name(), "Transaction")));
    for (const SentTransaction& sent : model_.sent())
        sentNames_.push_back(transactions.take(typeName(sent.record->Name(), "Transaction")));
    std::unordered_set<std::string> messages;
    for (const MessageNames& names : messageNames_)
        messages.insert(lowered(names.type));
    for (const auto* names : {&receivedNames_, &sentNames_}) {
        for (const std::string& name : *names) {
            if (messages.count(lowered(name)) > 0)
                sharedNames_.insert(lowered(name));
        }
    }
}

/// Where a language imports names, those that would be ambiguous are written with their package.
std::string PlugInWriter::referenceTo(std::string_view scope, const std::string& type) const {
    if (!language_.importsNames())
        return std::string(scope) + type;
    return sharedNames_.count(lowered(type)) > 0 ? package_ + "." + std::string(scope) + type : type;
}

void PlugInWriter::fillReference(TemplateData& data, const std::string& type, std::size_t message) const {
    data.set("typeRef", referenceTo(language_.word("transactionsScope"), type));
    data.set("messageRef", messageNames_[message].ref);
}

void PlugInWriter::fillProject(const std::string& projectName) {
    const bool isHost = model_.project().side == Side::Host;
    project_.set("package", package_);
    project_.set("project", literals_.comment(projectName));
    project_.set("projectLiteral", literals_.shownText(projectName));
    project_.set("side", isHost ? "Host" : "Equipment");
    project_.set("sideConstant", isHost ? "HOST" : "EQUIPMENT");
    project_.set("sideWord", isHost ? "host" : "equipment");
    project_.set("sideEnd", literals_.method(isHost ? "host" : "equipment"));
    project_.set("otherEnd", literals_.method(isHost ? "equipment" : "host"));
    project_.set("strayAnswers", isHost ? "0" : "1"); // only an equipment has an answer for everything
    for (const char* list : {"types", "functions", "streams", "chains", "answers", "receivedTypes",
                             "sentTypes", "sequences", "examples", "firstReceived"})
        project_.addList(list);
}

void PlugInWriter::fillMessages() {
    for (std::size_t index = 0; index < model_.messages().size(); ++index) {
        const KnownMessage& message = *model_.messages()[index];
        TemplateData& data = project_.add("types");
        data.set("type", messageNames_[index].type);
        data.set("file", messageNames_[index].type);
        data.set("head", headOf(message.record));
        data.set("nameLiteral", literals_.shownText(message.record.getName()));
        data.setFlag("isDecodable", hasFittingKeys(message.items.roots));
    }
}

/// The types that the plug-in uses by their simple names, sorted.
void PlugInWriter::fillImports() {
    std::set<std::string> imports;
    const auto add = [this, &imports](const std::string& scope, const std::string& type) {
        if (sharedNames_.count(lowered(type)) == 0)
            imports.insert(language_.word(scope) + type);
    };
    for (const std::size_t message : usedMessages())
        add("messagesScope", messageNames_[message].type);
    for (const auto* names : {&receivedNames_, &sentNames_}) {
        for (const std::string& name : *names)
            add("transactionsScope", name);
    }
    project_.addList("imports");
    for (const std::string& name : imports)
        project_.add("imports").set("name", name);
}

/// The messages that the plug-in decodes or encodes.
std::unordered_set<std::size_t> PlugInWriter::usedMessages() const {
    std::unordered_set<std::size_t> used;
    for (const auto& [place, messages] : model_.candidates())
        used.insert(messages.begin(), messages.end());
    for (const SentTransaction& sent : model_.sent())
        used.insert(sent.message);
    for (std::size_t index = 0; index < model_.messages().size(); ++index) {
        if (const auto reply = model_.automaticReply(index))
            used.insert(*reply);
    }
    return used;
}

void PlugInWriter::fillChain(TemplateData& data, std::size_t message) const {
    data.set("message", messageNames_[message].type);
    data.set("messageRef", messageNames_[message].ref);
    data.set("nameLiteral", literals_.shownText(model_.messages()[message]->record.getName()));
    data.setFlag("isAnswered", model_.automaticReply(message).has_value());
    data.addList("chain");
    for (const std::size_t index : model_.chainOf(message)) {
        TemplateData& link = data.add("chain");
        link.set("type", receivedNames_[index]);
        fillReference(link, receivedNames_[index], message);
        link.setFlag("hasCondition", model_.received()[index].condition.has_value());
    }
    data.setFlag("isOpen", model_.chainOf(message).empty() ||
                               model_.received()[model_.chainOf(message).back()].condition.has_value());
}

void PlugInWriter::fillDispatch() {
    int lastStream = -1;
    for (const auto& [place, messages] : model_.candidates()) {
        const auto [stream, function] = place;
        if (stream != lastStream)
            project_.add("streams").set("stream", std::to_string(stream));
        lastStream = stream;
        fillFunction(project_.add("functions"), place, messages);
        fillFunction(project_.last("streams").add("functions"), place, messages);
        for (const std::size_t message : messages)
            fillChain(project_.add("chains"), message);
    }
}

void PlugInWriter::fillFunction(TemplateData& data, std::pair<int, int> place,
                                const std::vector<std::size_t>& messages) const {
    data.set("stream", std::to_string(place.first));
    data.set("function", std::to_string(place.second));
    for (const std::size_t message : messages) {
        TemplateData& candidate = data.add("candidates");
        candidate.set("message", messageNames_[message].type);
        candidate.setFlag("isFirst", message == messages.front());
    }
}

void PlugInWriter::fillAnswers() {
    for (std::size_t index = 0; index < model_.messages().size(); ++index) {
        const auto reply = model_.automaticReply(index);
        if (!reply)
            continue;
        TemplateData& data = project_.add("answers");
        data.set("nameLiteral", literals_.shownText(model_.messages()[index]->record.getName()));
        data.set("reply", messageNames_[*reply].type);
        data.set("replyRef", messageNames_[*reply].ref);
    }
}

void PlugInWriter::fillTransactions() {
    for (std::size_t index = 0; index < model_.received().size(); ++index) {
        TemplateData& data = project_.add("receivedTypes");
        const std::size_t message = model_.received()[index].message;
        data.set("type", receivedNames_[index]);
        data.set("file", receivedNames_[index]);
        data.set("message", messageNames_[message].type);
        fillReference(data, receivedNames_[index], message);
        const SECSMessageRecord& record = model_.messages()[message]->record;
        data.set("head", headOf(record));
        if (index == 0)
            project_.add("firstReceived").set("type", receivedNames_[index]);
        if (record.getFunction() % 2 == 0)
            continue;
        TemplateData& example = project_.add("examples");
        example.set("type", messageNames_[message].type);
        example.set("stream", std::to_string(record.getStream()));
        example.set("function", std::to_string(record.getFunction()));
        example.set("wait", literals_.truth(record.getWait()));
        example.set("number", std::to_string(index + 1));
    }
    for (std::size_t index = 0; index < model_.sent().size(); ++index) {
        TemplateData& data = project_.add("sentTypes");
        const SECSMessageRecord& record = model_.messages()[model_.sent()[index].message]->record;
        data.set("type", sentNames_[index]);
        data.set("file", sentNames_[index]);
        data.set("message", messageNames_[model_.sent()[index].message].type);
        fillReference(data, sentNames_[index], model_.sent()[index].message);
        data.set("head", headOf(record));
        data.set("stream", std::to_string(record.getStream()));
        data.set("function", std::to_string(record.getFunction()));
        data.set("wait", literals_.truth(record.getWait()));
        data.setFlag("isPrimary", record.getFunction() % 2 == 1);
        const SentTransaction& sent = model_.sent()[index];
        data.setFlag("isDecodable", hasFittingKeys(sent.data ? sent.data->roots
                                                             : model_.messages()[sent.message]->items.roots));
    }
}

void PlugInWriter::fillSequences() {
    TemplateData* sequence = nullptr;
    for (const SequenceRow& row : model_.project().sequences.rows()) {
        if (row.isHead()) {
            sequence = &project_.add("sequences");
            sequence->set("nameLiteral", literals_.shownText(row.text));
            sequence->addList("steps");
        } else if (sequence != nullptr) {
            sequence->add("steps").set("step", literals_.shownText(row.transactionName));
        }
    }
}

std::size_t PlugInWriter::sizeOf(const std::string& list) const {
    if (list == "messages")
        return model_.messages().size();
    return list == "received" ? model_.received().size() : model_.sent().size();
}

TemplateData PlugInWriter::elementOf(const std::string& list, std::size_t index) const {
    TemplateData data;
    data.set("package", package_);
    data.set("project", *project_.text("project"));
    if (list == "messages") {
        MessageData(language_, literals_).fill(data, *model_.messages()[index], messageNames_[index]);
    } else if (list == "received") {
        const ReceivedTransaction& received = model_.received()[index];
        fillTransaction(data, received.message);
        ReceivedData(language_, literals_, *model_.messages()[received.message],
                     messageNames_[received.message], data)
            .fill(received, receivedNames_[index]);
    } else {
        const SentTransaction& sent = model_.sent()[index];
        fillTransaction(data, sent.message);
        SentData(language_, literals_, *model_.messages()[sent.message], messageNames_[sent.message], data)
            .fill(sent, sentNames_[index]);
    }
    return data;
}

void PlugInWriter::fillTransaction(TemplateData& data, std::size_t message) const {
    const MessageNames& names = messageNames_[message];
    data.set("messageRef", names.ref);
    data.setFlag("isImported", names.ref == names.type);
}

GeneratedFile PlugInWriter::fileOf(const Language::Output& output, const TemplateData& data) const {
    GeneratedFile file;
    output.path.append(file.path, data);
    output.text.append(file.text, data);
    return file;
}

std::vector<GeneratedFile> PlugInWriter::files() const {
    std::vector<GeneratedFile> files;
    for (const Language::Output& output : language_.outputs()) {
        if (output.list.empty()) {
            files.push_back(fileOf(output, project_));
            continue;
        }
        for (std::size_t index = 0; index < sizeOf(output.list); ++index)
            files.push_back(fileOf(output, elementOf(output.list, index)));
    }
    return files;
}

} // namespace zb::generate
