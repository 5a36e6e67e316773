#include "workbench/name_index.h"

#include "platform/text.h"

#include <algorithm>

namespace zb {

namespace {

// What a match in the message of an item counts, against one in its own name.
constexpr int kShareOfMessage = 4;
// More than the lengths of two texts can differ in.
constexpr int kNameBonus = 100;
// More than the length of a description takes away.
constexpr int kWholeNameBonus = 200;

struct Hit {
    int score = 0;
    std::uint32_t number = 0;

    friend bool operator<(const Hit& left, const Hit& right) {
        return left.score != right.score ? left.score > right.score : left.number < right.number;
    }
};

int bonusOf(NameIndex::Kind kind) {
    switch (kind) {
    case NameIndex::Kind::Message:
        return 20;
    case NameIndex::Kind::TRMessage:
        return 10;
    default:
        return 0;
    }
}

/// Scores the entries for the words that were typed. Those of a message are remembered for its items.
class Scoring {
public:
    Scoring(const NameIndex& index, std::string_view typed) : index_(index) {
        for (const std::string& word : splitAtBlanks(typed)) {
            if (word.empty())
                continue;
            words_.emplace_back(word);
            letters_ |= words_.back().letters();
        }
        ofMessage_.resize(words_.size());
    }

    int score(std::uint32_t number) {
        const NameIndex::Entry& entry = index_.entry(number);
        const bool ofMessage = words_.size() > 1 && entry.kind == NameIndex::Kind::Item;
        const std::uint64_t letters =
            ofMessage ? entry.letters | index_.entry(entry.message).letters : entry.letters;
        if ((letters_ & ~letters) != 0)
            return 0;
        int sum = 0;
        bool own = words_.empty();
        for (std::size_t i = 0; i < words_.size(); ++i) {
            int score = scoreOf(entry, words_[i]);
            own = own || score > 0;
            if (score == 0 && ofMessage)
                score = scoreOfMessage(entry, i) / kShareOfMessage;
            if (score == 0)
                return 0;
            sum += score;
        }
        return own ? sum + bonusOf(entry.kind) + 1 : 0;
    }

private:
    /// What a row shows beside its name may be the name of another.
    int scoreOf(const NameIndex::Entry& entry, const FuzzyWord& word) const {
        const int inAll = word.score(index_.searchText(entry));
        const SearchText name = index_.searchName(entry);
        const bool inName = inAll != 0 && word.score(name) != 0;
        const bool isName = inName && name.folded.size() == word.size();
        return inAll + (inName ? kNameBonus : 0) + (isName ? kWholeNameBonus : 0);
    }

    int scoreOfMessage(const NameIndex::Entry& item, std::size_t word) {
        if (message_ != item.message) {
            message_ = item.message;
            for (std::size_t i = 0; i < words_.size(); ++i)
                ofMessage_[i] = words_[i].score(index_.searchText(index_.entry(item.message)));
        }
        return ofMessage_[word];
    }

    const NameIndex& index_;
    std::vector<FuzzyWord> words_;
    std::uint64_t letters_ = 0;
    std::uint32_t message_ = static_cast<std::uint32_t>(-1);
    std::vector<int> ofMessage_;
};

} // namespace

void NameIndex::clear() {
    texts_.clear();
    folded_.clear();
    entries_.clear();
}

void NameIndex::add(Kind kind, std::string_view name, std::string_view more, int place) {
    Entry entry;
    entry.begin = texts_.size();
    entry.nameLength = static_cast<std::uint32_t>(name.size());
    entry.place = place;
    entry.kind = kind;
    texts_.append(name);
    if (!more.empty())
        texts_.append(" ").append(more);
    entry.length = static_cast<std::uint32_t>(texts_.size() - entry.begin);
    const std::string_view text = std::string_view(texts_).substr(entry.begin);
    entry.letters = lettersOf(text);
    entry.wordStarts = wordStartsOf(text);
    folded_ += foldedText(text);
    entries_.push_back(entry);
}

void NameIndex::addMessage(std::string_view name, std::string_view more, int place) {
    lastMessage_ = static_cast<std::uint32_t>(entries_.size());
    add(Kind::Message, name, more, place);
}

void NameIndex::addTRMessage(std::string_view name, std::string_view more, int place) {
    add(Kind::TRMessage, name, more, place);
}

void NameIndex::addItem(std::string_view name, int place) {
    add(Kind::Item, name, {}, place);
    entries_.back().message = lastMessage_;
}

NameIndex::Found NameIndex::find(std::string_view typed, std::size_t most) const {
    Scoring scoring(*this, typed);
    std::vector<Hit> hits;
    Found found;
    const auto keepBest = [&] {
        if (hits.size() <= most)
            return;
        std::nth_element(hits.begin(), hits.begin() + static_cast<std::ptrdiff_t>(most), hits.end());
        hits.resize(most);
    };
    int least = 0; // a hit must be better than this to be among the best
    for (std::uint32_t number = 0; number < entries_.size(); ++number) {
        const int score = scoring.score(number);
        if (score == 0)
            continue;
        ++found.all;
        if (score <= least)
            continue;
        hits.push_back({score, number});
        if (hits.size() < 2 * most + 64)
            continue;
        keepBest();
        least = std::max_element(hits.begin(), hits.end())->score;
    }
    keepBest();
    std::sort(hits.begin(), hits.end());
    for (const Hit& hit : hits)
        found.best.push_back(hit.number);
    return found;
}

} // namespace zb
