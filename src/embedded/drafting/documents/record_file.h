// The file of a recovery record: entries that are written at once, each with its length and its
// checksum, so that reading stops cleanly at the one that a kill cut short.
//
// File: entries [length u32][CRC-32 of the payload u32][payload], little-endian. Payload: one byte
// for its kind, then its content.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "embedded/base/raw_file.h"
#include "embedded/base/status.h"

namespace drafting {

enum class RecordKind : char {
  Start = 'S',  // of each file; RecordStart
  Event = 'E',  // of the journal; encodeEvent
  Saved = 'W',  // the drawing was written by the user; its path
};

// What stands at the start of each file.
struct RecordStart {
  std::uint32_t drawingChecksum = 0;  // CRC-32 of the generation that the entries continue
  bool changed = false;               // it differs from the drawing's file
  std::string path;                   // the drawing's; empty if it was never saved
};

std::string encodeStart(const RecordStart& start);
// False if the bytes are of another release of the program, or nothing of the kind.
bool decodeStart(std::string_view bytes, RecordStart& start);

std::uint32_t checksumOf(std::string_view bytes);

class RecordWriter {
 public:
  base::Status create(const std::filesystem::path& path);
  // Returns when the system has the bytes, which keeps them when this process is killed. They are
  // flushed to the disk once a second of work, so that a loss of power costs no more than that.
  base::Status write(RecordKind kind, std::string_view content);
  base::Status close() { return file_.close(); }
  bool isOpen() const { return file_.isOpen(); }
  std::uint64_t size() const { return size_; }

 private:
  using Clock = std::chrono::steady_clock;
  base::RawFile file_;
  std::uint64_t size_ = 0;
  Clock::time_point flushed_;
};

// Calls `take` for each whole entry until it returns false. True if the file was read to its end.
bool readRecord(std::string_view bytes,
                const std::function<bool(RecordKind, std::string_view content)>& take);

}  // namespace drafting
