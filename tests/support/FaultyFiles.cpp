#include "tests/support/FaultyFiles.h"

#include <utility>

namespace velmorin {

namespace {

class FaultyOutputFile final : public OutputFile {
public:
    FaultyOutputFile(std::unique_ptr<OutputFile> file, FaultyFiles& faults)
        : m_file{std::move(file)}, m_faults{faults} {}

    bool write(std::string_view bytes) override {
        if (m_faults.next()) return m_file->write(bytes);
        m_file->write(bytes.substr(0, bytes.size() / 2));
        return false;
    }
    bool sync() override { return m_faults.next() && m_file->sync(); }
    bool close() override {
        // A close that fails has closed the file all the same.
        const bool isFine = m_faults.next();
        return m_file->close() && isFine;
    }

private:
    std::unique_ptr<OutputFile> m_file;
    FaultyFiles& m_faults;
};

std::unique_ptr<OutputFile> wrapped(std::unique_ptr<OutputFile> file, FaultyFiles& faults) {
    if (!file) return nullptr;
    return std::make_unique<FaultyOutputFile>(std::move(file), faults);
}

} // namespace

bool FaultyFiles::makeDirectory(const std::filesystem::path& path) {
    return next() && m_files.makeDirectory(path);
}

std::optional<std::string> FaultyFiles::read(const std::filesystem::path& path) {
    return next() ? m_files.read(path) : std::nullopt;
}

std::optional<std::uint64_t> FaultyFiles::size(const std::filesystem::path& path) {
    return next() ? m_files.size(path) : std::nullopt;
}

std::unique_ptr<OutputFile> FaultyFiles::create(const std::filesystem::path& path) {
    return next() ? wrapped(m_files.create(path), *this) : nullptr;
}

std::unique_ptr<OutputFile> FaultyFiles::append(const std::filesystem::path& path) {
    return next() ? wrapped(m_files.append(path), *this) : nullptr;
}

bool FaultyFiles::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return next() && m_files.rename(from, to);
}

bool FaultyFiles::remove(const std::filesystem::path& path) {
    return next() && m_files.remove(path);
}

bool FaultyFiles::syncDirectory(const std::filesystem::path& path) {
    return next() && m_files.syncDirectory(path);
}

void FaultyFiles::inject(Fault fault, std::size_t operation) {
    m_fault = fault;
    m_faultyOperation = operation;
    m_count = 0;
}

bool FaultyFiles::next() {
    const std::size_t operation = m_count++;
    if (m_before) m_before(operation);
    switch (m_fault) {
    case Fault::none: return true;
    case Fault::failsOnce: return operation != m_faultyOperation;
    case Fault::failsOn: return operation < m_faultyOperation;
    }
    return true;
}

} // namespace velmorin
