#include "rehearsal/log_recording.h"

#include "messages/secs2/sml_data.h"
#include "messages/sml/characters.h"
#include "rehearsal/connection.h"
#include "rehearsal/hex_run.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

using sml::stripped;

/// Fewer bytes in a line of text are more likely numbers of another kind.
constexpr std::size_t kLeastBytes = 10;
constexpr std::size_t kMostTried = 64;
constexpr std::size_t kLongestBlock = secs2::kLongestFrame + 64;

} // namespace

LogRecording::LogRecording(LineSource lines, const RecordingOptions& options)
    : lines_(std::move(lines)), options_(options), writer_(options.side) {}

bool LogRecording::next(RecordedMessage& message) {
    while (messages_.empty() && !ended_) {
        options_.progress.at(lines_.bytesRead(), lines_.bytes());
        if (const auto line = lines_.next())
            readLine(*line);
        else
            finish();
    }
    if (messages_.empty())
        return false;
    message = std::move(messages_.front());
    messages_.pop_front();
    return true;
}

std::vector<RecordingFault> LogRecording::takeFaults() {
    return std::exchange(faults_, {});
}

void LogRecording::report(std::string text) {
    faults_.push_back({"line " + std::to_string(entry_.line), std::move(text)});
}

void LogRecording::readLine(std::string_view line) {
    if (inBody_ && readBodyLine(line))
        return;
    if (readDumpLine(line))
        return;
    const LogLine found = readLogLine(line);
    const std::size_t hex = hexStart(found);
    if (found.beginsEntry() || (found.way != Way::Unknown && hex != std::string_view::npos))
        begin(found);
    else
        merge(found);
    if (isSmlHead(found))
        startBody(found);
    else if (hex != std::string_view::npos)
        readHexLine(found);
}

/// True when the line belongs to the message whose SML is being read, or is another line within it.
bool LogRecording::readBodyLine(std::string_view line) {
    const std::string_view text = stripped(line);
    const char first = text.empty() ? '\0' : text.front();
    const bool isSml = (first == '<' && !text.starts_with("<-") && !text.starts_with("<<")) || first == '.' ||
                       first == '>' || first == '/' || first == '*' || sml::isQuote(first);
    if (first == '\0') {
        if (body_.state() == LogBody::State::Closed)
            finishBody();
        return true;
    }
    if (body_.state() == LogBody::State::Closed && first != '.') {
        finishBody();
        return false;
    }
    if (!isSml) {
        const LogLine found = readLogLine(line);
        if (found.beginsEntry() || isSmlHead(found) || !body_.hasItems()) {
            finishBody();
            return false;
        }
        if (found.time && found.time->begin <= 1)
            return true; // written by another part of the program
    }
    if (body_.add(line) == LogBody::State::Ended)
        finishBody();
    return true;
}

/// A line of a dump: after an offset, or after the mark of a comment.
bool LogRecording::readDumpLine(std::string_view line) {
    std::size_t at = std::min(line.find_first_not_of(" \t"), line.size());
    const bool isComment = at < line.size() && line[at] == '#';
    if (isComment)
        at = std::min(line.find_first_not_of(" \t#", at), line.size());
    const auto offset = passDumpOffset(line, at);
    if (!offset && !(isComment && entry_.active)) {
        if (line.starts_with("Frame (") || line.starts_with("Reassembled "))
            passesBlock_ = line.starts_with("Reassembled ");
        return false;
    }
    if (offset == 0UL) {
        if (blockIsDump_ || !entry_.active)
            finishEntry();
        entry_.line = lines_.lineNumber();
    }
    std::string bytes;
    if (readHexRun(line, at, HexForm::Dump, bytes) == at)
        return false;
    blockIsDump_ = true;
    if (!passesBlock_ && block_.bytes().size() < kLongestBlock)
        block_.bytes() += bytes;
    return true;
}

/// Where hexadecimal bytes begin that are part of a message.
std::size_t LogRecording::hexStart(const LogLine& found) const {
    const std::string_view line = found.line;
    std::size_t at = found.time && found.time->begin <= 1 ? found.time->end : 0;
    at = std::max(at, found.way == Way::Unknown ? 0 : found.afterWay);
    const bool isContinued = !blockIsDump_ && !block_.empty() && found.way == Way::Unknown;
    std::string bytes;
    while (at < line.size()) {
        at = std::min(line.find_first_not_of(" \t:]|", at), line.size());
        bytes.clear();
        const std::size_t end = readHexRun(line, at, HexForm::Line, bytes);
        const bool isAll = stripped(line.substr(end)).empty();
        if (bytes.size() >= kLeastBytes || (isContinued && isAll && !bytes.empty()))
            return at;
        if (found.way == Way::Unknown && !found.time)
            break;
        at = std::min(line.find_first_of(" \t:]|", std::max(at, end)), line.size());
    }
    return std::string_view::npos;
}

bool LogRecording::readHexLine(const LogLine& found) {
    std::string bytes;
    readHexRun(found.line, hexStart(found), HexForm::Line, bytes);
    // A frame after a complete one is an entry of its own, even without a direction, and it does not begin
    // with what the line before has too much.
    const bool followsFrame = block_.empty() && entry_.isTaken && found.way == Way::Unknown;
    if (followsFrame || (!block_.empty() && !block_.isWithinFrame() && HexBlock::beginsFrame(bytes)))
        finishEntry();
    if (!entry_.active && block_.empty()) {
        entry_.line = lines_.lineNumber();
        if (found.time)
            entry_.time = found.time->time;
    }
    block_.bytes() += bytes;
    blockIsDump_ = false;
    takeCompleteFrames();
    if (!block_.empty() && (!block_.isWithinFrame() || block_.bytes().size() > kLongestBlock) &&
        block_.bytes().size() >= kLeastBytes + secs2::kHsmsLengthSize)
        finishBlock();
    return true;
}

void LogRecording::takeCompleteFrames() {
    block_.takeComplete([this](std::string_view message) { emitFrame(message); },
                        [this](const secs2::BlockMessage& message) { emitBlocks(message); });
    if (block_.empty() && !entry_.active)
        entry_ = Entry();
}

void LogRecording::begin(const LogLine& found) {
    finishEntry();
    entry_.active = true;
    entry_.line = lines_.lineNumber();
    entry_.way = found.way;
    entry_.fromPort = found.fromPort;
    entry_.toPort = found.toPort;
    merge(found);
}

void LogRecording::merge(const LogLine& found) {
    if (found.header || (found.system && isSmlHead(found))) {
        if (!entry_.active)
            finishEntry();
        entry_.active = true;
    }
    if (!entry_.active && !found.head && !(found.time && stripped(found.line).size() <= found.time->end))
        return;
    if (entry_.line == 0)
        entry_.line = lines_.lineNumber();
    if (!entry_.time && found.time)
        entry_.time = found.time->time;
    if (found.header)
        entry_.header = found.header;
    if (found.system)
        entry_.system = found.system;
    if (found.session)
        entry_.session = found.session;
    if (found.size)
        entry_.size = found.size;
    if (entry_.active && entry_.control == 0)
        entry_.control = found.control;
}

void LogRecording::startBody(const LogLine& found) {
    // A dump of the same message decides.
    if (!block_.empty())
        finishBlock();
    inBody_ = true;
    body_.clear();
    head_ = *found.head;
    if (!entry_.active)
        entry_.line = lines_.lineNumber();
    const std::string_view rest = found.line.substr(found.head->end);
    if (!stripped(rest).empty() && body_.add(rest) == LogBody::State::Ended)
        finishBody();
}

void LogRecording::finishBody() {
    inBody_ = false;
    const bool isBare = !body_.hasItems() && body_.state() != LogBody::State::Ended;
    const bool isKnown = entry_.header || entry_.system || entry_.way != Way::Unknown;
    if (!entry_.isTaken && (!isBare || isKnown)) {
        RecordedMessage message = started();
        if (!entry_.header) {
            message.header.stream = static_cast<std::uint8_t>(head_.stream);
            message.header.function = static_cast<std::uint8_t>(head_.function);
            message.header.wait = head_.wait;
        }
        // What is between the head and the first item are marks.
        const std::string_view text = body_.text();
        const std::size_t start = std::min(text.find('<'), text.size());
        if (const auto fault = secs2::readSmlData(text.substr(start), message.items))
            message.fault = fault->text;
        emit(std::move(message));
    }
    entry_ = Entry();
}

void LogRecording::finishBlock() {
    entry_.isTaken = true;
    const auto take = [this](std::string_view message) { emitFrame(message); };
    if (blockIsDump_ && entry_.size && block_.takeRest(entry_.size, take))
        return;
    takeCompleteFrames();
    if (block_.empty() || block_.takeRest(std::nullopt, take))
        return;
    if (block_.isPacket()) {
        emitPackets();
    } else if (block_.isWithinFrame()) {
        report("the message has " + std::to_string(secs2::bigEndian32(block_.bytes())) + " bytes, " +
               std::to_string(block_.bytes().size() - secs2::kHsmsLengthSize) + " of them are in the log");
    } else {
        report(std::to_string(block_.bytes().size()) + " bytes are no message");
    }
    block_.clear();
}

void LogRecording::finishEntry() {
    if (!block_.empty())
        finishBlock();
    if (entry_.active && !entry_.isTaken) {
        secs2::Header header;
        header.session = 0xFFFF;
        header.sType = static_cast<std::uint8_t>(entry_.control);
        if (entry_.header || entry_.control != 0)
            emitHeader(entry_.header.value_or(header));
    }
    entry_ = Entry();
    blockIsDump_ = false;
}

void LogRecording::finish() {
    if (inBody_)
        finishBody();
    finishEntry();
    if (packets_) {
        packets_->finish();
        emitPackets();
    }
    if (lines_.isBroken())
        faults_.push_back(
            {"line " + std::to_string(lines_.lineNumber()), "the file cannot be read on from here"});
    if (block_.openBlocks() > 0)
        faults_.push_back({"end of the log", std::to_string(block_.openBlocks()) + " messages lack blocks"});
    ended_ = true;
}

void LogRecording::emitPackets() {
    if (!packets_)
        packets_ = std::make_unique<PacketReader>(options_);
    if (!block_.empty())
        packets_->add(kEthernetLink, block_.bytes(), entry_.time, ++packetNumber_);
    RecordedMessage message;
    while (packets_->take(message))
        messages_.push_back(std::move(message));
    for (RecordingFault& fault : packets_->takeFaults())
        faults_.push_back(std::move(fault));
}

void LogRecording::emitFrame(std::string_view frame) {
    entry_.isTaken = true;
    RecordedMessage message = started();
    message.header = secs2::decodeHeader(frame);
    message.hasSystem = true;
    decodeData(frame.substr(secs2::kHsmsHeaderSize), decoder_, message);
    emit(std::move(message));
}

void LogRecording::emitBlocks(const secs2::BlockMessage& joined) {
    RecordedMessage message = started();
    message.header = joined.header;
    message.hasSystem = true;
    message.direction = joined.toHost ? Direction::ToHost : Direction::ToEquip;
    decodeData(joined.data, decoder_, message);
    emit(std::move(message));
}

void LogRecording::emitHeader(const secs2::Header& header) {
    RecordedMessage message = started();
    const std::uint32_t system = message.header.system;
    message.header = header;
    message.header.system = system;
    emit(std::move(message));
}

/// A message with what its entry says.
RecordedMessage LogRecording::started() const {
    RecordedMessage message;
    message.time = entry_.time;
    message.direction = direction();
    message.place = "line " + std::to_string(entry_.line);
    if (entry_.header) {
        message.header = *entry_.header;
        message.hasSystem = true;
    }
    if (entry_.system && !entry_.header) {
        message.header.system = *entry_.system;
        message.hasSystem = true;
    }
    if (entry_.session && !entry_.header)
        message.header.session = *entry_.session;
    return message;
}

Direction LogRecording::direction() const {
    const int port = options_.port.value_or(secs2::kHsmsPort);
    if (entry_.fromPort && entry_.toPort && (*entry_.fromPort == port) != (*entry_.toPort == port)) {
        const bool byOpener = *entry_.toPort == port;
        return byOpener == (options_.side != Side::Equipment) ? Direction::ToEquip : Direction::ToHost;
    }
    const bool writerIsHost = writer_.value_or(options_.usualWriter) == Side::Host;
    switch (entry_.way) {
    case Way::ToEquip:
        return Direction::ToEquip;
    case Way::ToHost:
        return Direction::ToHost;
    case Way::Received:
        return writerIsHost ? Direction::ToHost : Direction::ToEquip;
    case Way::Sent:
    case Way::TrySent:
        return writerIsHost ? Direction::ToEquip : Direction::ToHost;
    default:
        return Direction::Unknown;
    }
}

/// An attempt to send and its success are two entries for one message.
bool LogRecording::isRepeated(const RecordedMessage& message) {
    if (entry_.way == Way::TrySent) {
        tried_.push_back(message.header);
        if (tried_.size() > kMostTried)
            tried_.pop_front();
    }
    if (entry_.way != Way::Sent)
        return false;
    const auto found = std::find(tried_.begin(), tried_.end(), message.header);
    if (found == tried_.end())
        return false;
    tried_.erase(found);
    return true;
}

void LogRecording::emit(RecordedMessage message) {
    constexpr unsigned kSelectRequest = 1;
    if (isRepeated(message))
        return;
    const bool isWritersView = entry_.way == Way::Received || entry_.way == Way::Sent;
    if (!writer_ && isWritersView && message.header.sType == kSelectRequest) {
        // The host usually opens the link.
        writer_ = entry_.way == Way::Received ? Side::Equipment : Side::Host;
        message.direction = direction();
    }
    messages_.push_back(std::move(message));
}

} // namespace zb::rehearsal
