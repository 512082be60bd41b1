#include "app/strings/AppStrings.h"
#include "core/language/Persian.h"

namespace velmorin {

namespace {

/// A count as Persian writes it.
std::string digits(std::int64_t value) {
    return Persian::number(value);
}

/// A text before, one put in as it is, and a text after.
std::string around(std::string_view before, std::string_view text, std::string_view after) {
    return std::string{before}.append(text).append(after);
}

} // namespace

const AppStrings AppStrings::persian{
    .appName = "Dravoni",
    .startSubtitle = "امروز روی چه کاری تمرکز می‌کنی؟",
    .profilesSubtitle = "برای هر جور کار، "
                        "مشخص کن کدام اپ‌ها و سایت‌ها مجاز باشند.",
    .thoughtsSubtitle = "فکرهای وسط کار، تا وقتشان برسد، "
                        "اینجا جایشان امن است.",
    .statsSubtitle = "زمانی که به خودت داده‌ای.",
    .settingsSubtitle = "ظاهر اپ و اتصالش به گوشی.",
    .modePomodoroDetail = "دورهای کوتاه با استراحت",
    .modeDeepDetail = "یک جلسه‌ی طولانی، یکسره قفل",
    .tabStart = "شروع",
    .tabProfiles = "پروفایل‌ها",
    .tabThoughts = "فکرها",
    .tabStats = "آمار",
    .tabSettings = "تنظیمات",
    .createProfileFirst = "اول یک پروفایل بساز.",
    .startSession = "شروع جلسه",
    .appsStayOpen = "اپ‌های باز بسته نمی‌شوند، "
                    "فقط پنهان می‌شوند؛ "
                    "پس کار ذخیره‌نشده‌ات از دست نمی‌رود.",
    .goalHeading = "هدف این جلسه (اختیاری)",
    .goalPlaceholder = "دقیقاً چه چیزی را می‌خواهی تمام کنی؟",
    .profileHeading = "پروفایل",
    .allowedInSession = "مجاز در این جلسه",
    .modeHeading = "حالت",
    .modePomodoro = "پومودورو",
    .modeDeep = "قفل عمیق",
    .resetTimings = "بازنشانی زمان‌ها",
    .resetTimingsHelp = "زمان‌های پومودورو و قفل عمیق این پروفایل را "
                        "به مقدار پیش‌فرض برمی‌گرداند. "
                        "اپ‌ها، سایت‌ها و بقیه‌ی تنظیمات "
                        "همان‌طور که هستند می‌مانند.",
    .focusLength = "تمرکز",
    .shortBreak = "استراحت کوتاه",
    .longBreak = "استراحت بلند",
    .cycleCount = "تعداد دورها",
    .totalLength = "مدت کل",
    .breakAfterEvery = "استراحت بعد از هر",
    .breakLength = "مدت استراحت",
    .sessionTotal = "کل جلسه",
    .noApps = "بدون اپ",
    .appCount = [](std::int64_t apps) { return digits(apps) + " اپ"; },
    .appAndSiteCount = [](std::int64_t apps,
                          std::int64_t sites) { return digits(apps) + " اپ و " + digits(sites) + " سایت"; },
    .stepLess = "کمتر",
    .stepMore = "بیشتر",
    .thisSessionWork = "کار این جلسه",
    .restWord = "استراحت",
    .segmentAndTotal = [](std::string_view segment,
                          std::string_view total) { return around("این بخش: ", segment, "، کل جلسه: ").append(total); },
    .returnedSoFar = [](std::int64_t times) { return "تا اینجا " + digits(times) + " بار برگشتی سر کار."; },
    .endSession = "پایان جلسه",
    .newThoughtPlaceholder = "فکر تازه‌ای داری؟",
    .save = "ذخیره",
    .thoughtsHint = "در جلسه از دکمه‌ی «نوشتن فکر» روی پنل کوچک، "
                    "یا از هر جای مک با کلیدهای ⌃⌥T.",
    .thoughtsEmpty = "هنوز چیزی اینجا نیست. "
                     "فکرهای وسط کار اینجا جمع می‌شوند.",
    .delete_ = "حذف",
    .appearanceHeading = "زبان و رنگ",
    .languageLabel = "زبان",
    .colorThemeLabel = "تم رنگی",
    .themeDusk = "غروب",
    .themeDawn = "سپیده‌دم",
    .themeAurora = "شفق قطبی",
    .displayHeading = "نمایش",
    .showBackdrop = "نمایش جمله‌ها به‌جای دسکتاپ هنگام کار",
    .showFloatingTimer = "نمایش تایمر شناور در طول جلسه",
    .doNotDisturbHeading = "حالت Do Not Disturb",
    .runShortcuts = "اجرای Shortcut هنگام شروع و پایان جلسه",
    .shortcutStart = "Shortcut شروع",
    .shortcutEnd = "Shortcut پایان",
    .shortcutHelp = "در اپ Shortcuts، دو Shortcut با همین نام‌ها بساز: "
                    "یکی با کنش Set Focus روی Do Not Disturb و On، "
                    "و دیگری با Off.",
    .phoneHeading = "گوشی",
    .phoneConnect = "اتصال گوشی",
    .phoneScanHint = "در اپ Dravoni روی گوشی، "
                     "تنظیمات را باز کن، "
                     "«اتصال به مک» را بزن و این کد را اسکن کن.",
    .phoneWaiting = "در انتظار گوشی…",
    .phoneCancelPairing = "لغو",
    .phoneConnected = "گوشی متصل است ✓",
    .phoneLockToo = "با شروع جلسه روی این مک، گوشی هم قفل شود",
    .phoneOneWayNote = "این اتصال یک‌طرفه است: "
                       "جلسه‌ای که روی گوشی شروع کنی، "
                       "مک را قفل نمی‌کند.",
    .phoneDisconnect = "قطع اتصال گوشی",
    .phoneLocking = "گوشی: در حال قفل شدن…",
    .phoneLockedNow = "گوشی: قفل شد ✓",
    .phoneNoAnswer = "گوشی: پاسخی نیامد",
    .phoneReleased = "گوشی: زودتر آزاد شد",
    .phoneNeedsSetup = "گوشی قفل نشد: "
                       "در اپ Dravoni روی گوشی، "
                       "از تنظیمات مجوز Accessibility را روشن کن.",
    .phoneNoAnswerDetail = "از گوشی پاسخی نیامد و شاید قفل نشده باشد. "
                           "اتصال اینترنتش را بررسی کن.",
    .periodToday = "امروز",
    .periodWeek = "۷ روز",
    .periodMonth = "۳۰ روز",
    .periodAll = "همه",
    .clearStats = "پاک کردن آمار",
    .focusTime = "زمان تمرکز",
    .sessionsWord = "جلسه",
    .completedRoundsLabel = "دور کامل",
    .roundsAmount = [](std::int64_t rounds) { return digits(rounds) + " دور کامل"; },
    .timesReturned = "بار برگشت به کار",
    .noSessionsYet = "هنوز جلسه‌ای ثبت نشده.",
    .noSessionsInRange = "در این بازه جلسه‌ای نیست.",
    .focusByProject = "زمان تمرکز هر پروژه",
    .dayByDay = "روز به روز",
    .clearStatsQuestion = "همه‌ی آمار پاک شود؟",
    .clearStatsDetail = "همه‌ی جلسه‌های ثبت‌شده حذف می‌شوند. "
                        "فکرها و پروفایل‌هایت می‌مانند "
                        "و تا دفعه‌ی بعد که آمار را پاک کنی، "
                        "می‌توانی آن را برگردانی.",
    .clearStatsConfirm = "بله، پاک کن",
    .cancel = "لغو",
    .statsWereCleared = "آمار قبلی‌ات پاک شد.",
    .restoreStats = "برگرداندن آمار",
    .focusedAmount = [](std::string_view time) { return around("", time, " تمرکز"); },
    .returnsAmount = [](std::int64_t returns) { return digits(returns) + " برگشت"; },
    .listSeparator = "، ",
    .sessionsHeading = "جلسه‌ها",
    .endedEarly = [](std::string_view reason) { return around("زودتر تمام شد: ", reason, ""); },
    .projectHelp = [](std::string_view name, std::string_view time,
                      std::int64_t sessions) { return around(name, ": ", time) + "، " + digits(sessions) + " جلسه"; },
    .chartDay = "روز",
    .chartFrom = "از",
    .chartTo = "تا",
    .chartProject = "پروژه",
    .noSessionThisDay = "بدون جلسه",
    .dayTotal = [](std::string_view time) { return around("جمع: ", time, ""); },
    .otherProjects = "بقیه",
    .newProfile = "پروفایل جدید",
    .deleteProfile = "حذف این پروفایل",
    .nameLabel = "نام",
    .profileNamePlaceholder = "نام پروفایل",
    .noAppsChosen = "هیچ اپی انتخاب نشده. "
                    "برای مطالعه با کتاب یا کاغذ همین مناسب است.",
    .removeItem = [](std::string_view item) { return around("حذف ", item, ""); },
    .chooseApps = "انتخاب اپ‌ها…",
    .allowedApps = "اپ‌های مجاز",
    .add = "افزودن",
    .badDomain = "این آدرس درست نیست. مثل example.org بنویس.",
    .domainsNote = "زیردامنه‌ها هم مجازند. "
                   "سایت‌های دیگر در Chrome و Safari بسته می‌مانند.",
    .browserWithoutSites = "مرورگری مجاز است ولی هیچ سایتی مجاز نیست، "
                           "پس فقط صفحه‌های خالی باز می‌شوند.",
    .allowedSites = "سایت‌های مجاز",
    .browserPermissionNote = "برای دیدن آدرس سایت‌ها یک بار مجوز لازم است. "
                             "بدون آن، مرورگر در طول جلسه قفل می‌شود.",
    .checkPermission = [](std::string_view browser) { return around("بررسی مجوز ", browser, ""); },
    .browserPermission = "مجوز مرورگر",
    .escapeHatchWarning =
        [](std::string_view app) { return around("با «", app, "» می‌شود قفل را دور زد."); },
    .unsupportedBrowserWarning =
        [](std::string_view browser) {
            return around(
                "سایت‌های «", browser,
                "» کنترل نمی‌شوند، فقط Chrome و Safari پشتیبانی می‌شوند.");
        },
    .permissionChecking = "در حال بررسی… اگر مک پرسید، OK را بزن.",
    .permissionGranted = "مجوز داده شد ✓",
    .permissionDenied = "رد شده. در System Settings › Privacy › Automation فعالش کن.",
    .permissionNoAnswer = "پاسخی نیامد. مرورگر را باز کن و دوباره امتحان کن.",
    .searchApps = "جست‌وجوی اپ‌ها",
    .done = "تمام",
    .thoughtBoxPrompt = "فکری آمد؟ اینجا بنویسش",
    .clockLabel = "ساعت",
    .remainingInSession = "مانده از جلسه",
    .writeThought = "نوشتن فکر",
    .writeThoughtHelp = "هر فکری آمد، اینجا بنویس. "
                        "⌃⌥T هم از هر جای مک همین را باز می‌کند.",
    .floatingEndSession = "پایان جلسه",
    .clockAt = [](std::string_view time) { return around("ساعت ", time, ""); },
    .timeLeft = [](std::string_view time) { return around("", time, " مانده"); },
    .breakLeft = [](std::string_view time) { return around("استراحت: ", time, ""); },
    .quickThoughtPlaceholder = "چه فکری آمد؟ بنویس و Enter را بزن",
    .thoughtFieldPrompt = "فکری آمد؟ اینجا بگذارش و در استراحت سراغش برو.",
    .thoughtFieldExample = "مثلاً: پیام دادن به یک دوست",
    .saved = "ذخیره شد",
    .breathing = "یک نفس آرام…",
    .backToWork = "برگشت به کار",
    .canWait = [](std::string_view target) { return around("فعلاً «", target, "» می‌تواند صبر کند."); },
    .endQuestion = "می‌خواهی جلسه را تمام کنی؟",
    .whyEnd = "چرا باید همین حالا تمام شود؟",
    .reasonPlaceholder = "چند کلمه برای خودت بنویس",
    .stayAndContinue = "می‌مانم و ادامه می‌دهم",
    .endAvailableIn =
        [](std::string_view time) { return around("پایان جلسه تا ", time, " دیگر فعال می‌شود"); },
    .reasonTooShort = "برای پایان جلسه، دلیلت را کمی کامل‌تر بنویس",
    .breakTime = "وقت استراحت",
    .restLeft = [](std::string_view time) { return around("", time, " استراحت داری"); },
    .keptThoughts = "فکرهایی که نگه داشتی",
    .backEarly = "برگشت زودتر به کار",
    .thisRoundWork = "کار این دور",
    .startNow = "شروع کنیم",
    .timesReturnedToWork = "بار برگشت به کار",
    .thoughtsKept = "فکر نگه‌داشته‌شده",
    .menuOpen = "باز کردن Dravoni",
    .menuWriteThought = "نوشتن فکر (⌃⌥T)",
    .menuHideTimer = "پنهان کردن تایمر شناور",
    .menuShowTimer = "نمایش تایمر شناور",
    .menuEndSession = "پایان جلسه…",
    .menuQuit = "خروج",
    .menuQuitApp = "خروج از Dravoni",
    .menuEdit = "ویرایش",
    .menuUndo = "واگرد",
    .menuCut = "برش",
    .menuCopy = "کپی",
    .menuPaste = "جای‌گذاری",
    .menuSelectAll = "انتخاب همه",
    .menuWindow = "پنجره",
    .menuClose = "بستن",
    .thisApp = "این اپ",
    .noAutomation = [](std::string_view browser) { return around("", browser, " (بدون مجوز Automation)"); },
};

} // namespace velmorin
