// The sequence of a save, and reading with a bound. What a system does differently is behind
// raw_file.h.
#include "embedded/base/files.h"

#include <fstream>
#include <system_error>

#include "embedded/base/paths.h"
#include "embedded/base/raw_file.h"

namespace base {

namespace fs = std::filesystem;

namespace {

SaveHook saveHook = nullptr;

Status before(SaveStep step) { return saveHook ? saveHook(step) : Status(); }

fs::path withSuffix(const fs::path& path, const std::string& suffix) {
  fs::path longer = path;
  longer += suffix;
  return longer;
}

// The file that a chain of links ends at; it needn't exist.
fs::path followLinks(fs::path path) {
  std::error_code error;
  for (int depth = 0; depth < 32 && fs::is_symlink(path, error); ++depth) {
    const fs::path target = fs::read_symlink(path, error);
    if (error) break;
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  return path;
}

using Producer = std::function<Status(const PieceWriter&)>;

Status writeTemporary(const fs::path& temporary, const Producer& produce) {
  RawFile file;
  Status status = before(SaveStep::create);
  if (status.ok()) status = file.create(temporary);
  if (status.ok()) status = before(SaveStep::write);
  if (status.ok()) status = produce([&file](std::string_view piece) { return file.write(piece); });
  if (status.ok()) status = before(SaveStep::flush);
  if (status.ok()) status = file.flush();
  if (status.ok()) status = file.close();
  return status;
}

Status putInPlace(const fs::path& temporary, const fs::path& path, SaveOptions options) {
  std::error_code error;
  Status status = copyPermissions(path, temporary);
  if (status.ok() && options.keepBackup && fs::exists(path, error)) {
    status = before(SaveStep::keepBackup);
    if (status.ok()) status = keepBackup(path, withSuffix(path, ".bak"));
  }
  if (status.ok()) status = before(SaveStep::replace);
  if (status.ok()) status = replaceFile(temporary, path);
  return status;
}

}  // namespace

Status fileFailure(const fs::path& path, std::string_view reason) {
  return Status::failure(utf8FromPath(path) + ": " + std::string(reason));
}

Result<std::string> readFile(const fs::path& path, std::uint64_t bound) {
  std::error_code error;
  const std::uint64_t size = fs::file_size(path, error);
  if (error) return fileFailure(path, error.message());
  if (size > bound)
    return fileFailure(path, "has " + std::to_string(size) + " bytes, more than the " +
                                 std::to_string(bound) + " that are read");
  std::ifstream in(path, std::ios::binary);
  if (!in) return fileFailure(path, "can't be opened for reading");
  std::string bytes(static_cast<std::size_t>(size), '\0');
  in.read(bytes.data(), static_cast<std::streamsize>(size));
  if (static_cast<std::uint64_t>(in.gcount()) != size)
    return fileFailure(path, "can't be read beyond byte " + std::to_string(in.gcount()));
  return bytes;
}

Status saveAtomically(const fs::path& name, std::string_view bytes, SaveOptions options) {
  return saveAtomically(
      name, [bytes](const PieceWriter& write) { return write(bytes); }, options);
}

Status saveAtomically(const fs::path& name, const Producer& produce, SaveOptions options) {
  const fs::path path = followLinks(name);
  Status status = checkReplaceable(path);
  if (!status.ok()) return status;
  const fs::path temporary = withSuffix(path, ".saving-" + std::to_string(processNumber()));
  status = writeTemporary(temporary, produce);
  if (status.ok()) status = putInPlace(temporary, path, options);
  if (!status.ok()) {
    std::error_code ignored;
    fs::remove(temporary, ignored);
    return fileFailure(path, "not saved (" + status.message() + ")");
  }
  return status;
}

SaveHook setSaveHook(SaveHook hook) { return std::exchange(saveHook, hook); }

Result<fs::path> moveDamagedAside(const fs::path& path) {
  std::error_code error;
  for (int number = 1;; ++number) {
    const fs::path aside = withSuffix(path, ".damaged-" + std::to_string(number));
    if (fs::exists(fs::symlink_status(aside, error))) continue;
    fs::rename(path, aside, error);
    if (error) return fileFailure(path, "can't be moved aside: " + error.message());
    return aside;
  }
}

}  // namespace base
