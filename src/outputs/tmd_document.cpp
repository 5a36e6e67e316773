#include "outputs/tmd_document.h"

#include "outputs/tmd_omissions.h"
#include "platform/file_access.h"
#include "platform/file_replacer.h"
#include "platform/text.h"
#include "platform/xml_document.h"
#include "project/project_view.h"

#include <unordered_map>

namespace zb {

namespace {

// Spelled as existing drivers expect it.
constexpr const char* kRootName = "Zelto-ModelingInformaion";
constexpr std::string_view kNoCondition = "NONE";

void setCount(XmlElement& element) {
    setElementAttribute(element, "Count", std::to_string(element.children().size()));
}

/// Runs one step of a section; text that XML refuses ends the step there.
template<typename Step>
void trapped(Step step) {
    try {
        step();
    } catch (const XmlNameError&) {
    } catch (const XmlTextError&) {
    }
}

XmlElement& appendWhole(XmlElement& parent, XmlElement child) {
    demandXmlText(child);
    return parent.append(std::move(child));
}

class TmdComposer {
public:
    TmdComposer(const TRModelStore& model, int projectType)
        : model_(model), received_(projectType == 1 ? kToHost : kToEquip),
          sent_(projectType == 1 ? kToEquip : kToHost) {}

    void writeSECSMessages(XmlElement& section) const;
    void writeTransactionMessages(XmlElement& receivedSection, XmlElement& sentSection,
                                  const Progress& progress) const;

private:
    static void addStatement(XmlElement& element, std::string condition, const std::string& name);
    static void writeTRItems(const TRMessageRecord& record, XmlElement& items);
    static void finishReceived(XmlElement& element, const TRMessageRecord& record);

    const TRModelStore& model_;
    int received_;
    int sent_;
};

void TmdComposer::writeSECSMessages(XmlElement& section) const {
    // By exact name, like findChildElement, but without a walk for each record.
    std::unordered_map<std::string_view, std::size_t> places;
    for (const auto& record : model_.TRMessages()) {
        if (record->Direction() == sent_)
            continue;
        const std::string& name = record->SECSMessage();
        const auto [place, isNew] = places.try_emplace(name, section.children().size());
        if (isNew)
            section.append(createElement(name));
        XmlElement& message = section.children()[place->second];
        trapped([&] { addStatement(message, record->Condition(), record->Name()); });
    }
}

// The dispatch chain: in any order of the records, a default is last, as the "else"; the first statement is
// the "if".
void TmdComposer::addStatement(XmlElement& element, std::string condition, const std::string& name) {
    XmlElement statement = createTextElement("Statement", name);
    auto place = element.children().end();
    if (element.children().empty()) {
        setElementAttribute(statement, "Type", "if");
    } else if (isBlank(condition) || condition == kNoCondition) {
        setElementAttribute(statement, "Type", "else");
    } else {
        setElementAttribute(statement, "Type", "elif");
        if (getElementAttribute(element.children().back(), "Type") == "else")
            --place;
    }
    if (isBlank(condition))
        condition = kNoCondition;
    setElementAttribute(statement, "Condition", std::move(condition));
    demandXmlText(statement);
    element.children().insert(place, std::move(statement));
}

void TmdComposer::writeTransactionMessages(XmlElement& receivedSection, XmlElement& sentSection,
                                           const Progress& progress) const {
    std::size_t done = 0;
    for (const auto& record : model_.TRMessages()) {
        progress.at(done++, model_.TRMessages().size());
        XmlElement element = createElement(record->Name());
        setElementAttribute(element, "SECSMessage", record->SECSMessage());
        if (record->Direction() == received_) {
            finishReceived(element, *record);
            appendWhole(receivedSection, std::move(element));
        } else if (record->Direction() == sent_) {
            element.append(record->DataBlockNode().value_or(createElement("DataBlock")));
            appendWhole(sentSection, std::move(element));
        }
    }
}

void TmdComposer::finishReceived(XmlElement& element, const TRMessageRecord& record) {
    setElementAttribute(element, "Report", record.Report() ? "Y" : "N");
    setElementAttribute(element, "Condition", record.Condition());
    XmlElement& items = element.append(createElement("TRItems"));
    trapped([&] { writeTRItems(record, items); });
    setCount(items);
}

void TmdComposer::writeTRItems(const TRMessageRecord& record, XmlElement& items) {
    for (const auto& item : record.TRItems()) {
        XmlElement element = createElement(item->Name());
        setElementAttribute(element, "Value", item->Value());
        setElementAttribute(element, "ABSValue", item->ABSValue());
        element.append(item->ConditionNode().value_or(createElement("Condition")));
        appendWhole(items, std::move(element));
    }
}

const char* ownerOf(std::string_view direction) {
    if (direction == "ToHost")
        return "TOOL";
    return direction == "ToEquip" ? "HOST" : "BOTH";
}

void writeSequenceItem(const SequenceRow& row, XmlElement* sequence) {
    XmlElement element = createElement("SEQ");
    setElementAttribute(element, "TransactionMessage", row.transactionName);
    setElementAttribute(element, "Owner", ownerOf(row.direction));
    // A row before all heads belongs to no sequence.
    if (sequence != nullptr)
        appendWhole(*sequence, std::move(element));
}

void writeSequences(const Sequences& sequences, XmlElement& section) {
    XmlElement* sequence = nullptr;
    for (const SequenceRow& row : sequences.rows()) {
        if (row.isHead()) {
            sequence = &section.append(createElement(row.text));
            setCount(*sequence);
        } else {
            trapped([&] { writeSequenceItem(row, sequence); });
            if (sequence != nullptr)
                setCount(*sequence);
        }
    }
}

} // namespace

XmlElement composeTmd(const TRModelStore& model, int projectType, const Sequences& sequences,
                      const Progress& progress) {
    XmlElement secsMessages = createElement("SECSMessages");
    XmlElement received = createElement("TransactionMessages");
    setElementAttribute(received, "Type", "R");
    XmlElement sent = createElement("TransactionMessages");
    setElementAttribute(sent, "Type", "S");
    XmlElement sequenceSection = createElement("Sequences");

    const TmdComposer composer(model, projectType);
    trapped([&] { composer.writeSECSMessages(secsMessages); });
    trapped([&] { composer.writeTransactionMessages(received, sent, progress); });
    trapped([&] { writeSequences(sequences, sequenceSection); });

    XmlElement root = createElement(kRootName);
    for (XmlElement* section : {&secsMessages, &received, &sent, &sequenceSection}) {
        setCount(*section);
        root.append(std::move(*section));
    }
    return root;
}

Result<TmdContent> writeTMD(const ProjectView& project, FileLayer& files, const std::string& path,
                            const Progress& progress) {
    constexpr double kComposed = 0.6;
    const XmlElement root = composeTmd(*project.model, projectTypeOf(project.side), project.sequences,
                                       progress.part(0, kComposed));
    const std::string document = xmlDocument(root);
    progress.part(kComposed, 1).at(1, 1);
    if (const Result<void> deleted = deleteFileIfExists(files, path); !deleted)
        return deleted.error();
    if (const Result<void> written = replaceFile(files, path, document); !written)
        return written.error();
    const auto& sections = root.children();
    return TmdContent{sections[1].children().size() + sections[2].children().size(),
                      sections[3].children().size(), omissionsOf(root, project)};
}

} // namespace zb
