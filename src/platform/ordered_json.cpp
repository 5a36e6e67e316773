#include "platform/ordered_json.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

namespace {

using Json = nlohmann::ordered_json;

/// Builds the document from the events of the parser.
class Builder final : public nlohmann::json_sax<Json> {
public:
    explicit Builder(std::size_t deepest) : deepest_(deepest) {}

    Json take() { return std::move(document_); }

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(value); }
    bool number_unsigned(number_unsigned_t value) override { return add(value); }
    bool number_float(number_float_t value, const string_t& /*text*/) override { return add(value); }
    bool string(string_t& value) override { return add(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return false; }
    bool start_object(std::size_t /*size*/) override { return open(Json::object()); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t /*size*/) override { return open(Json::array()); }
    bool end_array() override { return close(); }
    bool key(string_t& name) override {
        open_.back().key = std::move(name);
        return true;
    }
    bool parse_error(std::size_t /*at*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& /*error*/) override {
        return false;
    }

private:
    struct Level {
        Json* value; ///< stays where it is: nothing is added to its parent while it is open
        std::string key;
        std::unordered_map<std::string, std::size_t> places; ///< of the keys so far
    };

    bool add(Json value) {
        place(std::move(value));
        return true;
    }

    bool open(Json value) {
        if (open_.size() > deepest_)
            return false;
        Json& placed = place(std::move(value));
        open_.push_back({&placed, {}, {}});
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    Json& place(Json value) {
        if (open_.empty())
            return document_ = std::move(value);
        Level& level = open_.back();
        if (level.value->is_array())
            return level.value->get_ref<Json::array_t&>().emplace_back(std::move(value));
        // The map's own functions would search it; its storage is a vector.
        std::vector<Json::object_t::value_type>& members = level.value->get_ref<Json::object_t&>();
        const auto [known, isNew] = level.places.try_emplace(level.key, members.size());
        if (!isNew)
            return members[known->second].second = std::move(value);
        return members.emplace_back(std::move(level.key), std::move(value)).second;
    }

    std::size_t deepest_;
    Json document_;
    std::vector<Level> open_;
};

} // namespace

std::optional<nlohmann::ordered_json> readOrderedJson(std::string_view text, std::size_t deepest) {
    Builder builder(deepest);
    if (!Json::sax_parse(text, &builder))
        return std::nullopt;
    return builder.take();
}

} // namespace zb
