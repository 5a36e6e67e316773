#pragma once

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>

namespace zb {

/// A stream that passes each line on without anything that could control a terminal. It is the last guard of
/// the output of zbc: names and texts are made printable where they are inserted into a line, since only
/// there a line end within a name differs from the end of the line.
class PrintableStream final : public std::ostream {
public:
    /// With `colours`, the colours of console/printable.h pass, and they alone.
    explicit PrintableStream(std::ostream& sink, bool colours = false)
        : std::ostream(nullptr), lines_(sink, colours) {
        rdbuf(&lines_);
    }

private:
    class Lines final : public std::streambuf {
    public:
        Lines(std::ostream& sink, bool colours) : sink_(sink), colours_(colours) {}
        ~Lines() override { handOn(line_.size()); }
        Lines(const Lines&) = delete;
        Lines& operator=(const Lines&) = delete;

    private:
        int_type overflow(int_type character) override;
        std::streamsize xsputn(const char* text, std::streamsize count) override;
        int sync() override;
        void handOn(std::size_t length);

        std::ostream& sink_;
        bool colours_;
        std::string line_; // not handed on yet: half a character must not be taken for damage
    };

    Lines lines_;
};

} // namespace zb
