#include "compare/rename_following.h"

#include "compare/block_matching.h"
#include "platform/text.h"

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace zb {

namespace {

using Names = std::map<std::string, std::string>; // the old name, upper-cased, and the new one

/// The messages that a side renamed.
Names renamesOf(const ProjectParts& base, const ProjectParts& side) {
    const Blocks& before = base.blocks(ProjectParts::Messages);
    const Blocks& after = side.blocks(ProjectParts::Messages);
    const BlockMatching matching = matchBlocks(messageForm(), before, after);
    Names renames;
    for (std::size_t left = 0; left < before.size(); ++left) {
        const std::size_t right = matching.ofLeft[left];
        if (right == kNoBlock)
            continue;
        const std::string from = messageForm().nameKey(before[left].name);
        if (from != messageForm().nameKey(after[right].name))
            renames.emplace(from, after[right].name);
    }
    return renames;
}

std::set<std::string> messageNames(const Project& project) {
    std::set<std::string> names;
    for (const Block& block : messageForm().split(project.messages.text()))
        names.insert(messageForm().nameKey(block.name));
    return names;
}

/// The data of a sent message begins with the head of its SECS message.
void renameBlock(TRMessageRecord& record, const std::string& name) {
    if (!record.DataBlock())
        return;
    const SECSMessageRecord& block = *record.DataBlock();
    const std::string_view head = block.getNodeText();
    const std::size_t colon = head.find(':');
    if (colon == std::string_view::npos)
        return;
    SECSMessageRecord renamed;
    renamed.parseTexts(name + std::string(head.substr(colon)), block.getDescription(), block.getBodyText());
    record.setDataBlock(std::move(renamed));
}

bool uses(const Project& project, const std::string& trMessage, const std::string& key) {
    const TRMessageRecord* record = project.model->getTRMessage(trMessage);
    return record != nullptr && upper(record->SECSMessage()) == key;
}

} // namespace

void followRenames(Project& merged, const ProjectParts& base, const ProjectParts& ours,
                   const ProjectParts& theirs) {
    std::set<std::string> present;
    for (const auto& [side, other] : {std::pair(&ours, &theirs), std::pair(&theirs, &ours)}) {
        const Names renames = renamesOf(base, *side);
        if (renames.empty())
            continue;
        if (present.empty())
            present = messageNames(merged);
        for (const auto& record : merged.model->TRMessages()) {
            const std::string key = upper(record->SECSMessage());
            const auto rename = renames.find(key);
            if (rename == renames.end() || present.contains(key) || !present.contains(upper(rename->second)))
                continue;
            // What the renaming side left alone stays.
            if (uses(side->project(), record->Name(), key) || !uses(other->project(), record->Name(), key))
                continue;
            record->setSECSMessage(rename->second);
            renameBlock(*record, rename->second);
        }
    }
}

} // namespace zb
