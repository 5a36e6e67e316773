#pragma once

#include "model/tr_model_store.h"

#include <cstdint>
#include <random>
#include <string>

namespace zb::test {

/// Generates models with difficult texts.
class ModelMaker {
public:
    explicit ModelMaker(std::uint32_t seed) : random_(seed) {}

    void fill(TRModelStore& model, int messages);

    std::string anyText();

private:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
    bool oneIn(int count) { return upTo(count - 1) == 0; }
    XmlElement anyElement(std::string name, int depth);
    SECSMessageRecord anyBlock();
    std::unique_ptr<TRItemRecord> anyItem(std::string name);

    std::mt19937 random_;
};

/// The whole contents of the model, as a text that equal models share.
std::string described(const TRModelStore& model);
/// The same of one message.
std::string described(const TRMessageRecord& message);

} // namespace zb::test
