#include "app/platform/linux/relay/CurlRelayTransport.h"

#include "app/platform/linux/relay/CurlLoop.h"
#include "app/platform/linux/relay/LineSplitter.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

constexpr double longestTimeout = 1e6; // seconds
constexpr long connectTimeout = 30;    // seconds, for a stream

/// libcurl's number for a limit, at least the least it takes: zero would be none.
long milliseconds(double seconds) {
    return static_cast<long>(std::max(1.0, std::min(seconds, longestTimeout) * 1000));
}

void setUp(CURL* easy, const std::string& url) {
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_PROXY, "");
    // Cancelled while a name is looked up, it must not wait for the answer.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    // A stream is not to share its connection with what is posted.
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
}

} // namespace

/// One request under way.
class CurlRelayTransport::Transfer {
public:
    explicit Transfer(const std::string& url) : easy{curl_easy_init()} {
        setUp(easy, url);
        curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, take);
        curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;
    ~Transfer() {
        curl_easy_cleanup(easy);
        curl_slist_free_all(m_headers);
    }

    void post(const std::string& body, double timeout) {
        // Neither what libcurl takes the body for, nor the question whether it may be sent.
        for (const auto* header : {"Content-Type:", "Expect:"})
            m_headers = curl_slist_append(m_headers, header);
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, m_headers);
        curl_easy_setopt(easy, CURLOPT_POST, 1L);
        curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
        curl_easy_setopt(easy, CURLOPT_COPYPOSTFIELDS, body.data());
        curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, milliseconds(timeout));
    }

    void stream() {
        curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, connectTimeout);
        // A relay that has gone without a word is found out within two minutes.
        curl_easy_setopt(easy, CURLOPT_TCP_KEEPALIVE, 1L);
        curl_easy_setopt(easy, CURLOPT_TCP_KEEPIDLE, 30L);
        curl_easy_setopt(easy, CURLOPT_TCP_KEEPINTVL, 10L);
    }

    void finish(CURLcode result) {
        hasEnded = true;
        if (result != CURLE_OK) return;
        if (line) splitter.finish();
        long code = 0;
        curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &code);
        if (code != 0) status = static_cast<int>(code);
    }

    CURL* easy;
    Answer answer; ///< of a post
    Line line;     ///< these two of a stream
    End end;
    LineSplitter splitter;
    std::optional<int> status;
    bool hasEnded = false;

private:
    static std::size_t take(char* data, std::size_t size, std::size_t count, void* transfer) {
        auto* self = static_cast<Transfer*>(transfer);
        const auto length = size * count;
        if (!self->line) return length;
        return self->splitter.take({data, length}) ? length : CURL_WRITEFUNC_ERROR;
    }

    curl_slist* m_headers = nullptr;
};

/// All requests under way. What libcurl tells is passed on when it is done telling, so that a call may do what it
/// likes.
class CurlRelayTransport::Transfers : public std::enable_shared_from_this<Transfers> {
public:
    Transfers() = default;
    Transfers(const Transfers&) = delete;
    Transfers& operator=(const Transfers&) = delete;
    ~Transfers() { clear(); }

    Cancellable start(std::shared_ptr<Transfer> transfer) {
        const auto number = ++m_count;
        // libcurl and its cryptography are memory and time, which nobody without a phone shall spend.
        if (!m_loop) m_loop = std::make_unique<CurlLoop>([this] { deliver(); });
        m_loop->add(transfer->easy);
        m_transfers.emplace(number, std::move(transfer));
        return Cancellable{[self = weak_from_this(), number] {
            if (const auto transfers = self.lock()) transfers->drop(number);
        }};
    }

    void clear() {
        while (!m_transfers.empty())
            drop(m_transfers.begin()->first);
    }

private:
    void drop(std::uint64_t number) {
        const auto found = m_transfers.extract(number);
        if (!found.empty()) m_loop->remove(found.mapped()->easy);
    }

    void noteEnded() {
        while (const auto ended = m_loop->nextEnded()) {
            const auto found =
                std::ranges::find(m_transfers, ended->first, [](const auto& entry) { return entry.second->easy; });
            if (found != m_transfers.end()) found->second->finish(ended->second);
        }
    }

    void deliver() {
        const auto self = shared_from_this(); // a call may end the transport
        noteEnded();
        std::vector<std::uint64_t> numbers;
        for (const auto& entry : m_transfers)
            numbers.push_back(entry.first);
        for (const auto number : numbers)
            deliver(number);
    }

    void deliver(std::uint64_t number) {
        auto found = m_transfers.find(number);
        if (found == m_transfers.end()) return;
        const auto transfer = found->second; // a call may drop it
        while (auto line = transfer->splitter.next()) {
            transfer->line(std::move(*line));
            if (!m_transfers.contains(number)) return;
        }
        if (!transfer->hasEnded) return;
        drop(number);
        if (transfer->end) transfer->end();
        if (transfer->answer) transfer->answer(transfer->status);
    }

    std::unique_ptr<CurlLoop> m_loop; ///< there from the first request on
    std::map<std::uint64_t, std::shared_ptr<Transfer>> m_transfers;
    std::uint64_t m_count = 0;
};

CurlRelayTransport::CurlRelayTransport() : m_transfers{std::make_shared<Transfers>()} {}

CurlRelayTransport::~CurlRelayTransport() {
    m_transfers->clear();
}

Cancellable CurlRelayTransport::post(const std::string& url, const std::string& body, double timeout, Answer answer) {
    auto transfer = std::make_shared<Transfer>(url);
    transfer->post(body, timeout);
    transfer->answer = std::move(answer);
    return m_transfers->start(std::move(transfer));
}

Cancellable CurlRelayTransport::stream(const std::string& url, Line line, End end) {
    auto transfer = std::make_shared<Transfer>(url);
    transfer->stream();
    transfer->line = std::move(line);
    transfer->end = std::move(end);
    return m_transfers->start(std::move(transfer));
}

} // namespace velmorin
