#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace zb {

/// Why a file could not be used: the error number of the system (errno), and a sentence about it.
struct FileError {
    int number = 0;
    std::string description;

    bool operator==(const FileError&) const = default;
};

/// The system's text for an error number.
std::string describeSystemError(int number);
/// The error with this number, described by the system's text.
FileError systemError(int number);

/// A value, or the reason why there is none. Reading a missing value throws.
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

/// Success, or the reason for a failure.
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
