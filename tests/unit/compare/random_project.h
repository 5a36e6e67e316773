#pragma once

#include "project/project.h"

#include <random>
#include <string>
#include <vector>

namespace zb::test {

struct RandomItem {
    std::string type;
    std::string name;
    std::string value; ///< of a list whose count does not follow its sub items the count
    std::vector<RandomItem> items;
};

struct RandomMessage {
    std::string name;
    std::string description;
    int stream = 1;
    int function = 1;
    bool wait = false;
    std::string direction = "H->E";
    std::vector<RandomItem> items;
};

struct RandomTrMessage {
    std::string name;
    std::string message;
    std::string condition;
    int direction = 1;
    bool hasBlock = false;
    std::vector<std::string> blockItems;
    std::vector<std::pair<std::string, std::string>> items; ///< name and source
};

struct RandomSequence {
    std::string name;
    std::vector<std::string> rows; ///< names of TR messages
};

/// A project that is made up and edited at random, with the same result for the same seed. Names and texts
/// are numbered, so that nearly all lines are different.
class RandomProject {
public:
    RandomProject(unsigned seed, std::size_t messages);

    /// Edits it; `mark` is part of all new names and texts.
    void edit(unsigned seed, std::size_t edits, const std::string& mark);

    std::string text() const;
    Project project() const;

    std::vector<RandomMessage> messages;
    std::vector<RandomTrMessage> model;
    std::vector<RandomSequence> sequences;
    std::vector<std::pair<std::string, std::string>> foreign; ///< header and one line
    bool isEquipment = false;

private:
    std::size_t below(std::size_t limit);
    std::string fresh(const std::string& word);
    RandomItem makeItem(int depth);
    RandomMessage makeMessage();
    RandomTrMessage makeTrMessage();
    void editMessage(RandomMessage& message);
    void editItems(std::vector<RandomItem>& items);
    void editTrMessage(RandomTrMessage& message);
    void editSequence(RandomSequence& sequence);

    std::mt19937 random_;
    std::string mark_;
    std::size_t number_ = 0;
};

} // namespace zb::test
