#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace zb {

// What the system said when a file could not be used: its error number (that of errno), and a sentence about
// it.
struct FileError {
    int number = 0;
    std::string description;

    bool operator==(const FileError&) const = default;
};

// The system's own words for an error number.
std::string describeSystemError(int number);
// The error of this number, described by the system's own words.
FileError systemError(int number);

// The value that was asked for, or why there is none. Reading the one that is not there throws.
template<typename T, typename E = FileError>
class [[nodiscard]] Result {
public:
    Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(E error) : content_(std::in_place_index<1>, std::move(error)) {}

    bool ok() const { return content_.index() == 0; }
    explicit operator bool() const { return ok(); }

    const T& value() const& { return std::get<0>(content_); }
    T& value() & { return std::get<0>(content_); }
    T&& value() && { return std::get<0>(std::move(content_)); }
    const T& operator*() const& { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    const T* operator->() const { return &value(); }

    const E& error() const { return std::get<1>(content_); }

private:
    std::variant<T, E> content_;
};

// Done, or why not.
template<typename E>
class [[nodiscard]] Result<void, E> {
public:
    Result() = default;
    Result(E error) : error_(std::move(error)) {}

    bool ok() const { return !error_.has_value(); }
    explicit operator bool() const { return ok(); }
    const E& error() const { return error_.value(); }

private:
    std::optional<E> error_;
};

} // namespace zb
