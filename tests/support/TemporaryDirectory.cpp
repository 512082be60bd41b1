#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

namespace velmorin {

TemporaryDirectory::TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "velmorin-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error{"no temporary directory could be made"};
    m_path = name;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace velmorin
