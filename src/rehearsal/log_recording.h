#pragma once

#include "messages/secs2/item_codec.h"
#include "rehearsal/hex_block.h"
#include "rehearsal/line_source.h"
#include "rehearsal/log_body.h"
#include "rehearsal/log_line.h"
#include "rehearsal/recording.h"

#include <deque>
#include <memory>

namespace zb::rehearsal {

/// The messages of a log: SML with headers around it, dumps, hexadecimal frames, with any other lines
/// between.
class LogRecording final : public Recording {
public:
    LogRecording(LineSource lines, const RecordingOptions& options);

    bool next(RecordedMessage& message) override;
    std::vector<RecordingFault> takeFaults() override;

private:
    /// What is known of the message of the current entry before its data.
    struct Entry {
        bool active = false;
        std::optional<RecordedTime> time;
        Way way = Way::Unknown;
        std::optional<std::uint32_t> system;
        std::optional<std::uint16_t> session;
        std::optional<secs2::Header> header;
        unsigned control = 0;
        std::optional<std::size_t> size;
        std::optional<int> fromPort, toPort;
        bool isTaken = false; ///< the message was taken from its dump
        std::size_t line = 0;
    };

    void readLine(std::string_view line);
    bool readBodyLine(std::string_view line);
    bool readDumpLine(std::string_view line);
    bool readHexLine(const LogLine& found);
    std::size_t hexStart(const LogLine& found) const;
    void begin(const LogLine& found);
    void merge(const LogLine& found);
    void startBody(const LogLine& found);
    void finishBody();
    void finishEntry();
    void finishBlock();
    void takeCompleteFrames();
    void finish();

    void emitFrame(std::string_view message);
    void emitBlocks(const secs2::BlockMessage& message);
    void emitHeader(const secs2::Header& header);
    void emitPackets();
    RecordedMessage started() const;
    void emit(RecordedMessage message);
    Direction direction() const;
    bool isRepeated(const RecordedMessage& message);
    void report(std::string text);

    LineSource lines_;
    RecordingOptions options_;
    std::optional<Side> writer_; ///< as far as it is known
    Entry entry_;
    HexBlock block_;
    bool blockIsDump_ = false;
    bool passesBlock_ = false; ///< a dump that shows bytes again
    LogBody body_;
    bool inBody_ = false;
    FoundHead head_;
    std::deque<RecordedMessage> messages_;
    std::vector<RecordingFault> faults_;
    std::deque<secs2::Header> tried_; ///< announced, and not yet reported as sent
    std::unique_ptr<PacketReader> packets_;
    std::size_t packetNumber_ = 0;
    secs2::ItemDecoder decoder_;
    bool ended_ = false;
};

} // namespace zb::rehearsal
