// What becomes of a session whose file is not what it was.

#include "core/store/PosixFiles.h"
#include "tests/support/EngineTest.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Segment work{SegmentKind::work, 60};
constexpr Segment shortRest{SegmentKind::shortBreak, 60};

/// A disk that can be gone.
class ResumeWithoutDiskTest : public EngineTest {
protected:
    ResumeWithoutDiskTest() {
        disk = &faulty;
        addEditorAndGame();
    }

    FaultyFiles faulty{files};
};

TEST_F(ResumeWithoutDiskTest, aFileThatCannotBeReadIsLikeNone) {
    leaveSession({work}, 10);
    faulty.inject(FaultyFiles::Fault::failsOn, 0);
    desktop().serviceManager.job = std::vector<std::string>{"--watchdog"};
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(desktop().serviceManager.job, std::nullopt);
    EXPECT_THAT(eventNames(), ElementsAre("remove", "watchdog"));
}

/// A disk that is a real one.
class ResumeOnDiskTest : public EngineTest {
protected:
    ResumeOnDiskTest() {
        disk = &m_files;
        setup.directory = m_directory.path();
        addEditorAndGame();
    }

    std::filesystem::path place() const { return m_directory.path() / sessionFile; }

private:
    TemporaryDirectory m_directory;
    PosixFiles m_files;
};

TEST_F(ResumeOnDiskTest, aSessionIsTakenUpFromARealFile) {
    startSession(profile(SessionMode::pomodoro));
    push();
    const ActiveSession before = session();
    crash();
    relaunch();
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session(), before);
}

TEST_F(ResumeOnDiskTest, aDirectoryInThePlaceOfTheFileIsLikeNone) {
    std::filesystem::create_directory(place());
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(desktop().serviceManager.job, std::nullopt);
    startSession(profile(SessionMode::pomodoro));
    EXPECT_TRUE(controller().isActive());
    push();
    EXPECT_EQ(session().attempts, 1);
}

/// What a session file may have become.
struct Damage {
    const char* name;
    std::function<std::string(std::string)> of; ///< the damaged text of a sound one
};

std::function<std::string(std::string)> become(std::string text) {
    return [text = std::move(text)](const std::string&) { return text; };
}

std::function<std::string(std::string)> replace(std::string what, std::string with) {
    return [what = std::move(what), with = std::move(with)](std::string text) {
        return text.replace(text.find(what), what.size(), with);
    };
}

class DamagedSessionTest : public EngineTest, public ::testing::WithParamInterface<Damage> {};

TEST_P(DamagedSessionTest, isLikeNoneAndRemoved) {
    addEditorAndGame();
    leaveSession({work, shortRest}, 10);
    const std::string sound = *file(sessionFile);
    writeFile(sessionFile, GetParam().of(sound));
    ASSERT_NE(file(sessionFile), sound);
    desktop().serviceManager.job = std::vector<std::string>{"--watchdog"};
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_FALSE(*controller().status());
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(file(sessionFile), std::nullopt);
    EXPECT_EQ(desktop().serviceManager.job, std::nullopt);
    // No record, no sound, no callback and no word about it.
    EXPECT_THAT(eventNames(), ElementsAre("remove", "watchdog"));
    EXPECT_THAT(*data().history(), IsEmpty());
    EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Damages, DamagedSessionTest,
    ::testing::Values(
        Damage{"empty", become("")}, Damage{"blank", become("  \n")}, Damage{"notJSON", become("session")},
        Damage{"notUTF8", replace("write", "\xFF\xFE")}, Damage{"zeroBytes", become(std::string(300, '\0'))},
        Damage{"emptyObject", become("{}")}, Damage{"null", become("null")}, Damage{"aNumber", become("7")},
        Damage{"aText", become(R"("active")")},
        Damage{"aList", [](const std::string& text) { return "[" + text + "]"; }},
        Damage{"truncatedByOneByte", [](const std::string& text) { return text.substr(0, text.size() - 1); }},
        Damage{"truncatedInTheMiddle", [](const std::string& text) { return text.substr(0, text.size() / 2); }},
        Damage{"trailingGarbage", [](const std::string& text) { return text + "x"; }},
        Damage{"twoObjects", [](const std::string& text) { return text + text; }},
        Damage{"aMissingKey", replace(R"("attempts":0,)", "")},
        Damage{"aNullKey", replace(R"("attempts":0)", R"("attempts":null)")},
        Damage{"aDuplicateKey", replace(R"("attempts":0)", R"("attempts":0,"attempts":0)")},
        Damage{"aMissingPlan", replace(R"("segments":[)", R"("sections":[)")},
        Damage{"anEmptyPlan", replace(R"([{"kind":"work","duration":60},{"kind":"shortBreak","duration":60}])", "[]")},
        Damage{"aSegmentWithoutItsLength", replace(R"({"kind":"work","duration":60})", R"({"kind":"work"})")},
        Damage{"anUnknownKindOfSegment", replace(R"("work")", R"("nap")")},
        Damage{"anUnknownMode", replace(R"("pomodoro")", R"("marathon")")},
        Damage{"aModeInCapitals", replace(R"("pomodoro")", R"("Pomodoro")")},
        Damage{"aTextAsStart", replace(R"("startedAt":)", R"("startedAt":"soon","was":)")},
        Damage{"aTextAsLength", replace(R"("duration":60)", R"("duration":"60")")},
        Damage{"anObjectAsPlan",
               replace(R"([{"kind":"work","duration":60},{"kind":"shortBreak","duration":60}])", "{}")},
        Damage{"aFractionAsCounter", replace(R"("attempts":0)", R"("attempts":0.5)")},
        Damage{"aTextAsCounter", replace(R"("returns":0)", R"("returns":"0")")},
        Damage{"aCounterBeyondItsRange", replace(R"("returns":0)", R"("returns":9223372036854775808)")},
        Damage{"aLengthBeyondItsRange", replace(R"("duration":60)", R"("duration":1e999)")},
        Damage{"numbersAsApplications", replace(R"(["org.example.editor"])", "[1]")},
        Damage{"aTextAsListOfHidden", replace(R"("hiddenBundleIDs":[])", R"("hiddenBundleIDs":"")")},
        Damage{"anIdentifierThatIsNone", replace(R"("id":")", R"("id":"x)")}),
    [](const auto& test) { return std::string{test.param.name}; });

} // namespace
} // namespace velmorin
