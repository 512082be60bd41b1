#include "app/engine/ShortcutsTool.h"

#include "tests/support/RecordingChildProcesses.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

TEST(ShortcutsToolTest, aShortcutIsStartedByItsNameAndForgotten) {
    RecordingChildProcesses childProcesses;
    ShortcutsTool shortcuts{childProcesses};
    shortcuts.run("Velmorin On");
    shortcuts.run("");
    EXPECT_THAT(childProcesses.lines,
                ElementsAre("start /usr/bin/shortcuts [run] [Velmorin On]", "start /usr/bin/shortcuts [run] []"));
}

} // namespace
} // namespace velmorin
