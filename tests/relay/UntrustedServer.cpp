#include "tests/relay/UntrustedServer.h"

#include <array>
#include <memory>
#include <netinet/in.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace velmorin {

namespace {

template <auto Free>
struct Freeing {
    template <class Kind>
    void operator()(Kind* object) const {
        Free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Freeing<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Freeing<X509_free>>;
using Context = std::unique_ptr<SSL_CTX, Freeing<SSL_CTX_free>>;
using Session = std::unique_ptr<SSL, Freeing<SSL_free>>;

Certificate selfSigned(EVP_PKEY* key) {
    Certificate certificate{X509_new()};
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
    X509_set_pubkey(certificate.get(), key);
    auto* const name = X509_get_subject_name(certificate.get());
    const std::array<unsigned char, 10> host{"127.0.0.1"};
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host.data(), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_sign(certificate.get(), key, EVP_sha256());
    return certificate;
}

} // namespace

UntrustedServer::UntrustedServer() : m_listener{::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)} {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    ::bind(m_listener, plain, size);
    ::listen(m_listener, 1);
    ::getsockname(m_listener, plain, &size);
    m_port = ntohs(address.sin_port);
    m_thread = std::thread{[this] { serve(); }};
}

UntrustedServer::~UntrustedServer() {
    ::shutdown(m_listener, SHUT_RDWR);
    m_thread.join();
    ::close(m_listener);
}

void UntrustedServer::serve() {
    const Key key{EVP_EC_gen("P-256")};
    const auto certificate = selfSigned(key.get());
    const Context context{SSL_CTX_new(TLS_server_method())};
    SSL_CTX_use_certificate(context.get(), certificate.get());
    SSL_CTX_use_PrivateKey(context.get(), key.get());
    const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) return;
    const Session session{SSL_new(context.get())};
    SSL_set_fd(session.get(), connection);
    if (SSL_accept(session.get()) == 1) {
        std::array<char, 4096> request{};
        m_hasBeenAsked = SSL_read(session.get(), request.data(), request.size()) > 0;
        constexpr std::string_view answer = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";
        if (m_hasBeenAsked) SSL_write(session.get(), answer.data(), answer.size());
    }
    ::close(connection);
}

} // namespace velmorin
