#include "app/shell/MainModel.h"
#include "app/shell/Text.h"
#include "core/phone/PhoneWire.h"
#include "tests/screens/ScreenTest.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlProperty>
#include <array>
#include <functional>

namespace velmorin {
namespace {

constexpr const char* chrome = "com.google.Chrome";
constexpr std::array languages{AppLanguage::persian, AppLanguage::english, AppLanguage::german};

class MainViewTest : public ScreenTest {
protected:
    MainViewTest() {
        Profile first{"Studying", SessionMode::pomodoro};
        first.allowedApps = {{"org.example.editor", "Editor"}, {chrome, "Chrome"}};
        data().setProfiles({first, Profile{"Code", SessionMode::deep}});
        auto& apps = stage().desktop.installedApplications.apps;
        for (const auto* const name : {"Atlas", "Painter", "Reader", "Writer"})
            apps.push_back({name, std::string{"org.example."} + name, std::string{"/"} + name});
    }

    void showMain(QSize size = {1000, 760}) { show("MainView", {{"model", QVariant::fromValue(&model)}}, size); }
    void showProfiles(QSize size = {1000, 1400}) {
        model.setTab(MainModel::Profiles);
        showMain(size);
    }
    const Profile& profile(std::size_t place = 0) { return data().profiles()->at(place); }
    ProfileEditorModel& editor() { return *model.profiles()->editor(); }

    /// A phone is paired.
    void pairPhone() {
        auto& link = data().phoneLink();
        auto& desktop = stage().desktop;
        link.beginPairing();
        settle();
        constexpr std::string_view hello = R"({"type":"hello","v":1})";
        desktop.relay.publish(link.pairing()->statusTopic(),
                              PhoneWire::seal({hello.begin(), hello.end()}, link.pairing()->key, PhoneWire::status,
                                              desktop.random.bytes(12))
                                  .value_or(""));
        advance(1);
    }
    QString accessibleName(QQuickItem* item) {
        auto* const shown = item == nullptr ? nullptr : QAccessible::queryAccessibleInterface(item);
        return shown == nullptr ? QString{} : shown->text(QAccessible::Name);
    }
    /// Goes on with the Tab key until this has the keyboard; false when it never does.
    bool tabTo(const std::function<bool(QQuickItem&)>& check, Qt::Key key = Qt::Key_Tab) {
        for (int presses = 0; presses < 60; ++presses) {
            press(key);
            if (focused() != nullptr && check(*focused())) return true;
        }
        return false;
    }
    bool tabTo(std::string_view name) {
        return tabTo([&](QQuickItem& item) { return accessibleName(&item) == toQString(name); });
    }
    /// All visible items of a kind.
    std::vector<QQuickItem*> all(const char* kind) {
        std::vector<QQuickItem*> found;
        const std::function<void(QQuickItem*)> visit = [&](QQuickItem* item) {
            if (!item->isVisible()) return;
            if (item->inherits(kind)) found.push_back(item);
            for (auto* const child : item->childItems())
                visit(child);
        };
        visit(view().contentItem());
        return found;
    }
    /// What of an item is to be seen, where others cut it off.
    static QRectF visiblePlace(const QQuickItem& item) {
        auto seen = place(item);
        for (auto* parent = item.parentItem(); parent != nullptr; parent = parent->parentItem())
            if (parent->clip()) seen = seen.intersected(place(*parent));
        return seen;
    }
    /// Expects each text to be whole, inside the window from side to side, and over no other.
    void expectTextsInTheirPlaces(const std::string& page) {
        auto shown = all("QQuickText");
        std::erase_if(shown, [](const QQuickItem* text) {
            return text->property("text").toString().isEmpty() || visiblePlace(*text).isEmpty();
        });
        for (auto one = shown.begin(); one != shown.end(); ++one) {
            const auto& text = **one;
            const auto where = page + ": " + text.property("text").toString().toStdString();
            const auto seen = visiblePlace(text);
            EXPECT_LE(text.property("contentHeight").toReal(), text.height() + 1) << where;
            EXPECT_GE(seen.left(), 0) << where;
            EXPECT_LE(seen.right(), view().width()) << where;
            for (auto other = one + 1; other != shown.end(); ++other) {
                const auto common = seen.intersected(visiblePlace(**other));
                EXPECT_FALSE(common.width() > 1 && common.height() > 3)
                    << where << " over " << (*other)->property("text").toString().toStdString();
            }
        }
    }
    /// Lets time pass, and has everything take its place.
    void wait(double seconds = 0.5) {
        advance(seconds);
        picture();
    }

    MainModel& model = stage().main;
};

TEST_F(MainViewTest, aSessionIsStartedWithTheMouse) {
    showMain();
    wait();
    click(button("Code"));
    click(fields().front());
    type("the draft");
    click(button(strings().startSession));
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ((*controller().session())->profileName, "Code");
    EXPECT_EQ((*controller().session())->intent, "the draft");
}

TEST_F(MainViewTest, aSessionIsStartedWithTheKeyboardAlone) {
    showMain();
    ASSERT_TRUE(tabTo(strings().goalPlaceholder));
    type("the draft");
    ASSERT_TRUE(tabTo("Code"));
    press(Qt::Key_Space);
    ASSERT_TRUE(tabTo(strings().totalLength));
    press(Qt::Key_Home);
    press(Qt::Key_Right);
    EXPECT_EQ(profile(1).deep.totalMinutes, 30);
    ASSERT_TRUE(tabTo(strings().startSession));
    press(Qt::Key_Return);
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ((*controller().session())->intent, "the draft");
    EXPECT_EQ((*controller().session())->profileName, "Code");
}

TEST_F(MainViewTest, returnInTheGoalStartsNothingAndBreaksNoLine) {
    showMain();
    click(fields().front());
    type("the");
    press(Qt::Key_Return);
    type(" draft");
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(model.start()->intent(), "the draft");
}

TEST_F(MainViewTest, aRunningSessionTakesThePlaceOfTheStartPageUntilItEnds) {
    showMain();
    model.start()->setIntent("the draft");
    click(button(strings().startSession));
    EXPECT_EQ(button(strings().startSession), nullptr);
    EXPECT_NE(itemWithText(strings().thisSessionWork), nullptr);
    EXPECT_NE(itemWithText(QString{"the draft"}), nullptr);
    EXPECT_NE(itemWithText(strings().segmentAndTotal("25 min", "2 hr 10 min")), nullptr);
    advance(60);
    EXPECT_NE(itemWithText(strings().segmentAndTotal("24 min", "2 hr 9 min")), nullptr);
    click(button(strings().endSession));
    EXPECT_TRUE(std::holds_alternative<Overlay::EmergencyExit>(*controller().overlay()));
    controller().cancelEmergencyExit();
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    advance(1);
    controller().confirmEmergencyExit("I have finished what I wanted to do today");
    ASSERT_FALSE(controller().isActive());
    settle();
    EXPECT_NE(button(strings().startSession), nullptr);
    EXPECT_EQ(fields().front()->property("text"), "");
}

TEST_F(MainViewTest, theReturnsAreCountedUnderTheCard) {
    warn();
    showMain();
    EXPECT_EQ(itemWithText(strings().returnedSoFar(1)), nullptr);
    controller().returnToWork();
    settle();
    EXPECT_NE(itemWithText(strings().returnedSoFar(1)), nullptr);
}

TEST_F(MainViewTest, withoutProfilesThereIsOnlyTheAdviceToMakeOne) {
    data().setProfiles({});
    showMain();
    EXPECT_NE(itemWithText(strings().createProfileFirst), nullptr);
    EXPECT_EQ(button(strings().startSession), nullptr);
    EXPECT_TRUE(fields().empty());
}

TEST_F(MainViewTest, theOtherModeBringsItsOwnSlidersAtOnce) {
    showMain();
    EXPECT_EQ(all("QQuickSlider").size(), 4U);
    click(button(strings().modeDeep));
    EXPECT_EQ(all("QQuickSlider").size(), 3U);
    EXPECT_NE(itemWithText(strings().modeDeepDetail), nullptr);
    EXPECT_EQ(profile().mode, SessionMode::deep);
}

TEST_F(MainViewTest, aSliderFollowsTheMouseOnItsGrid) {
    showMain();
    auto* const slider = all("QQuickSlider").front();
    click(slider);
    EXPECT_EQ(profile().pomodoro.workMinutes % 5, 0);
    EXPECT_NEAR(static_cast<double>(profile().pomodoro.workMinutes), 62.5, 5);
    EXPECT_EQ(slider->property("value").toDouble(), static_cast<double>(profile().pomodoro.workMinutes));
    click(button(strings().resetTimings));
    EXPECT_EQ(slider->property("value").toDouble(), 25);
}

TEST_F(MainViewTest, theArrowKeysGoAlongTheRail) {
    showMain();
    ASSERT_TRUE(tabTo(strings().tabStart));
    press(Qt::Key_Down);
    EXPECT_EQ(accessibleName(focused()), toQString(strings().tabProfiles));
    press(Qt::Key_Return);
    EXPECT_EQ(model.tab(), MainModel::Profiles);
    EXPECT_EQ(accessibleName(focused()), toQString(strings().tabProfiles));
    press(Qt::Key_Up);
    press(Qt::Key_Space);
    EXPECT_EQ(model.tab(), MainModel::Start);
}

TEST_F(MainViewTest, theRailIsAtTheLeadingEdgeAndThePreviewAtTheOther) {
    showMain();
    EXPECT_LT(place(*button(strings().tabStart)).right(), 200);
    EXPECT_GT(place(*button(strings().modeDeep)).left(), 700);
    stage().wear(AppLanguage::persian, ColorTheme::dusk);
    wait();
    EXPECT_GT(place(*button(strings().tabStart)).left(), 800);
    EXPECT_LT(place(*button(strings().modeDeep)).right(), 300);
}

TEST_F(MainViewTest, theFirstProfileIsInViewAlsoWhereTheRowStartsAtTheRight) {
    std::vector<Profile> many;
    for (int place = 0; place < 20; ++place)
        many.emplace_back("Profile " + std::to_string(place), SessionMode::pomodoro);
    data().setProfiles(many);
    for (const auto language : languages) {
        stage().wear(language, ColorTheme::dusk);
        showMain();
        const auto page = QRectF{150, 0, 700, 760};
        EXPECT_TRUE(page.intersects(place(*button("Profile 0"))) || language == AppLanguage::persian);
        const auto heading = place(*itemWithText(strings().profileHeading));
        const auto chip = place(*button("Profile 0"));
        EXPECT_GE(chip.left(), heading.left() - 1);
        EXPECT_LE(chip.right(), heading.right() + 1);
    }
}

TEST_F(MainViewTest, thePhoneIsOnlyShownWhenThereIsSomethingToSay) {
    showMain();
    EXPECT_EQ(stage().session.phoneStatus(), "");
    const auto named = [this](std::string_view name) {
        for (auto* const item : all("QQuickItem"))
            if (accessibleName(item) == toQString(name)) return true;
        return false;
    };
    EXPECT_FALSE(named(strings().phoneLocking));
    pairPhone();
    data().phoneLink().sendStart(ActiveSession{});
    settle();
    ASSERT_EQ(*data().phoneLink().lockState(), LockState::sending);
    EXPECT_TRUE(named(strings().phoneLocking));
}

TEST_F(MainViewTest, aNameIsTypedInItsMiddleWithoutTheCaretLeaving) {
    showProfiles();
    auto* const name = fields().front();
    click(name);
    name->setProperty("cursorPosition", 2);
    type("XY");
    EXPECT_EQ(profile().name, "StXYudying");
    EXPECT_EQ(name->property("cursorPosition").toInt(), 4);
    EXPECT_NE(button("StXYudying"), nullptr);
}

TEST_F(MainViewTest, twoApplicationsAreChosenWithTheMouse) {
    showProfiles();
    click(button(strings().chooseApps));
    wait();
    ASSERT_NE(editor().picker(), nullptr);
    click(button("Painter"));
    click(button("Atlas"));
    click(button(strings().done));
    wait();
    EXPECT_EQ(editor().picker(), nullptr);
    EXPECT_EQ(editor().appNames(), (QStringList{"Editor", "Chrome", "Painter", "Atlas"}));
    EXPECT_NE(itemWithText(QString{"Painter"}), nullptr);
}

TEST_F(MainViewTest, applicationsAreChosenWithTheKeyboardAloneAndTheFocusComesBack) {
    showProfiles();
    ASSERT_TRUE(tabTo(strings().chooseApps));
    press(Qt::Key_Space);
    wait();
    ASSERT_NE(editor().picker(), nullptr);
    EXPECT_EQ(accessibleName(focused()), toQString(strings().searchApps));
    type("er");
    EXPECT_EQ(editor().picker()->rowCount(), 3);
    wait();
    ASSERT_TRUE(tabTo([](QQuickItem& item) { return item.parentItem()->parentItem()->inherits("QQuickListView"); }));
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(editor().appNames(), (QStringList{"Editor", "Chrome", "Reader", "Writer"}));
    press(Qt::Key_Space);
    EXPECT_EQ(editor().appNames(), (QStringList{"Editor", "Chrome", "Reader"}));
    press(Qt::Key_Escape);
    wait();
    EXPECT_EQ(editor().picker(), nullptr);
    EXPECT_EQ(accessibleName(focused()), toQString(strings().chooseApps));
}

TEST_F(MainViewTest, theTabKeyStaysInTheSheet) {
    showProfiles();
    click(button(strings().chooseApps));
    wait();
    const auto inSheet = [this] {
        for (auto* item = focused(); item != nullptr; item = item->parentItem())
            if (item->inherits("QQuickPopupItem")) return true;
        return false;
    };
    for (int presses = 0; presses < 8; ++presses) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(inSheet()) << presses;
    }
    for (int presses = 0; presses < 8; ++presses) {
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(inSheet()) << presses;
    }
}

TEST_F(MainViewTest, theSheetIsMirroredAndInTheMiddle) {
    stage().wear(AppLanguage::persian, ColorTheme::dusk);
    showProfiles({1000, 760});
    editor().openPicker();
    wait();
    const auto done = place(*button(strings().done));
    EXPECT_LT(done.right(), 500);
    EXPECT_GT(done.left(), 250);
}

TEST_F(MainViewTest, onlyTheRowsInViewOfALongListExist) {
    auto& apps = stage().desktop.installedApplications.apps;
    for (int place = 0; place < 300; ++place)
        apps.push_back({"App " + std::to_string(place), "org.a" + std::to_string(place), "/a"});
    showProfiles();
    editor().openPicker();
    wait();
    EXPECT_LT(all("QQuickImage").size(), 40U);
    EXPECT_GT(all("QQuickImage").size(), 8U);
}

TEST_F(MainViewTest, aSiteIsAddedWithReturnAndAnotherWithTheButton) {
    showProfiles();
    click(fields().back());
    type("https://www.example.org/path");
    press(Qt::Key_Return);
    EXPECT_EQ(profile().allowedDomains, std::vector<std::string>{"example.org"});
    EXPECT_EQ(fields().back()->property("text"), "");
    EXPECT_EQ(fields().back(), focused());
    type("b.org");
    click(button(strings().add));
    EXPECT_EQ(profile().allowedDomains, (std::vector<std::string>{"example.org", "b.org"}));
}

TEST_F(MainViewTest, aBadAddressIsSaidInThePlaceOfTheMissingSites) {
    showProfiles();
    EXPECT_NE(itemWithText(strings().browserWithoutSites), nullptr);
    click(fields().back());
    type("nonsense");
    press(Qt::Key_Return);
    EXPECT_NE(itemWithText(strings().badDomain), nullptr);
    EXPECT_EQ(itemWithText(strings().browserWithoutSites), nullptr);
    EXPECT_EQ(fields().back()->property("text"), "nonsense");
}

TEST_F(MainViewTest, whoRemovesByKeyboardStaysAmongTheRows) {
    showProfiles();
    ASSERT_TRUE(tabTo(strings().removeItem("Editor")));
    press(Qt::Key_Space);
    EXPECT_EQ(accessibleName(focused()), toQString(strings().removeItem("Chrome")));
    press(Qt::Key_Space);
    EXPECT_TRUE(profile().allowedApps.empty());
    EXPECT_EQ(accessibleName(focused()), toQString(strings().chooseApps));
    EXPECT_NE(itemWithText(strings().noAppsChosen), nullptr);
}

TEST_F(MainViewTest, removingTheBrowserHidesThePermissions) {
    showProfiles();
    EXPECT_NE(itemWithText(strings().browserPermission), nullptr);
    click(button(strings().removeItem("Chrome")));
    EXPECT_EQ(itemWithText(strings().browserPermission), nullptr);
}

TEST_F(MainViewTest, aCheckSaysWhatItFinds) {
    stage().desktop.workspace.add({.pid = 7, .bundleID = chrome, .name = "Chrome"});
    stage().desktop.browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Denied{}, 2});
    showProfiles();
    click(button(strings().checkPermission("Chrome")));
    EXPECT_NE(itemWithText(strings().permissionChecking), nullptr);
    advance(2.1);
    EXPECT_NE(itemWithText(strings().permissionDenied), nullptr);
}

TEST_F(MainViewTest, theLastProfileCannotBeDeleted) {
    showProfiles();
    auto* const remove = button(strings().deleteProfile);
    click(remove);
    EXPECT_EQ(data().profiles()->size(), 1U);
    EXPECT_FALSE(remove->isEnabled());
    click(remove);
    EXPECT_EQ(data().profiles()->size(), 1U);
    click(button(strings().newProfile));
    EXPECT_TRUE(remove->isEnabled());
    EXPECT_EQ(fields().front()->property("text"), toQString(strings().newProfile));
}

TEST_F(MainViewTest, everyTextHasItsPlaceInEachLanguage) {
    Profile full{"Ein sehr langer Name eines Profils, 学习 مطالعه, der nirgends ganz hineinpasst", SessionMode::deep};
    full.allowedApps = {
        {"org.example.terminal", "A terminal with a name that is longer than any row has room for, truly"},
        {chrome, "Chrome"}};
    full.allowedDomains = {"example.org", "a-very-long-domain-name-that-does-not-end-before-the-row-does.example.org"};
    data().setProfiles({full, full, profile(0)});
    stage().context.cautions.isEscapeHatch = [](std::string_view id) { return id == "org.example.terminal"; };
    model.start()->setIntent(QString{"finish the whole chapter about sorting, "}.repeated(8).left(300));
    for (const auto language : languages) {
        stage().wear(language, ColorTheme::dusk);
        editor().setNewDomain("nonsense");
        editor().addDomain();
        for (const auto size : {QSize{900, 680}, QSize{1400, 1800}}) {
            for (const auto tab : {MainModel::Start, MainModel::Profiles}) {
                model.setTab(tab);
                showMain(size);
                wait();
                expectTextsInTheirPlaces(std::to_string(static_cast<int>(language)) + ", tab " + std::to_string(tab) +
                                         ", " + std::to_string(size.width()) + " wide");
            }
        }
    }
}

} // namespace
} // namespace velmorin
