#include "core/geometry/PanelPlacement.h"
#include "core/geometry/TimeSlider.h"
#include "core/rules/AppPolicy.h"
#include "core/rules/BrowserScripts.h"
#include "core/rules/DomainPolicy.h"
#include "core/rules/Friction.h"
#include "tests/conformance/Operations.h"

#include <string>
#include <vector>

namespace velmorin {

// Tabs are never stored; here they are described for the answer.
constexpr auto fields(std::type_identity<BrowserTab>) {
    return std::tuple{field("windowID", &BrowserTab::windowID), field("url", &BrowserTab::url)};
}

namespace conformance {

namespace {

using Texts = std::vector<std::string>;
using Numbers = std::vector<double>;

AppPolicy::BundleIDs setOf(const Texts& texts) {
    return {texts.begin(), texts.end()};
}

/// A list of exactly `count` numbers.
Numbers numbers(const Numbers& list, std::size_t count, const char* argument) {
    if (list.size() != count) throw MalformedInput{"the argument \"" + std::string{argument} + "\" is malformed"};
    return list;
}

std::vector<Rectangle> rectangles(const Request& request, const char* argument) {
    std::vector<Rectangle> rectangles;
    for (const auto& list : request.get<std::vector<Numbers>>(argument)) {
        const auto sides = numbers(list, 4, argument);
        rectangles.push_back({sides[0], sides[1], sides[2], sides[3]});
    }
    return rectangles;
}

void addRules(Operations& operations) {
    operations["AppPolicy.isAllowed"] = [](const Request& request, JSONOutput& output) {
        AppPolicy policy;
        policy.allowed = setOf(request.get<Texts>("allowed"));
        policy.selfBundleID = request.find<std::string>("selfBundleID");
        if (const auto onlyBlock = request.find<Texts>("onlyBlock")) policy.onlyBlock = setOf(*onlyBlock);
        output.write(policy.isAllowed(request.find<std::string>("bundleID")));
    };
    operations["DomainPolicy.normalize"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, DomainPolicy::normalize(request.get<std::string>("text")));
    };
    operations["DomainPolicy.isAllowed"] = [](const Request& request, JSONOutput& output) {
        output.write(DomainPolicy::isAllowed(request.get<std::string>("url"), request.get<Texts>("allowedDomains")));
    };
    operations["DomainPolicy.displayName"] = [](const Request& request, JSONOutput& output) {
        output.write(DomainPolicy::displayName(request.get<std::string>("url")));
    };
    operations["Friction.warningPauseSeconds"] = [](const Request& request, JSONOutput& output) {
        output.write(Friction::warningPauseSeconds(request.get<std::int64_t>("attempt")));
    };
    operations["Friction.canConfirmExit"] = [](const Request& request, JSONOutput& output) {
        output.write(Friction::canConfirmExit(request.get<std::string>("reason"), request.get<Date>("waitedUntil"),
                                              request.get<Date>("now")));
    };
}

void addBrowserScripts(Operations& operations) {
    operations["BrowserScripts.listTabs"] = [](const Request& request, JSONOutput& output) {
        output.write(BrowserScripts::listTabs(request.get<BrowserKind>("browser")));
    };
    operations["BrowserScripts.blankTab"] = [](const Request& request, JSONOutput& output) {
        output.write(
            BrowserScripts::blankTab(request.get<BrowserKind>("browser"), request.get<std::string>("windowID")));
    };
    operations["BrowserScripts.parseTabs"] = [](const Request& request, JSONOutput& output) {
        encode(output, BrowserScripts::parseTabs(request.get<std::string>("output")));
    };
    operations["BrowserScripts.isPermissionDenied"] = [](const Request& request, JSONOutput& output) {
        output.write(BrowserScripts::isPermissionDenied(request.get<std::string>("stderr")));
    };
}

void addGeometry(Operations& operations) {
    operations["TimeSlider.stored"] = [](const Request& request, JSONOutput& output) {
        output.write(TimeSlider::stored(request.get<double>("x"), request.get<std::int64_t>("lower"),
                                        request.get<std::int64_t>("upper"), request.get<std::int64_t>("step")));
    };
    operations["PanelPlacement.arrangementKey"] = [](const Request& request, JSONOutput& output) {
        output.write(PanelPlacement::arrangementKey(rectangles(request, "frames")));
    };
    operations["PanelPlacement.origin"] = [](const Request& request, JSONOutput& output) {
        const auto point = numbers(request.get<Numbers>("point"), 2, "point");
        const auto size = numbers(request.get<Numbers>("size"), 2, "size");
        const auto origin =
            PanelPlacement::origin({point[0], point[1]}, {size[0], size[1]}, rectangles(request, "screens"));
        if (origin) {
            encode(output, Numbers{origin->x, origin->y});
        } else {
            output.writeNull();
        }
    };
}

} // namespace

void addRulesOperations(Operations& operations) {
    addRules(operations);
    addBrowserScripts(operations);
    addGeometry(operations);
}

} // namespace conformance

} // namespace velmorin
