#include "rtmp/RTMPTransportSecurity.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <algorithm>
#include <asio/ip/address.hpp>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

namespace vellora {
namespace {

using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;
using MemoryBio = std::unique_ptr<BIO, decltype(&BIO_free)>;

constexpr std::size_t maximumNames = 5;

RTMPSocketFailure trustFailure(const std::filesystem::path& file, const std::string& reason) {
  return {RTMPSocketError::trustFileUnreadable, "the file of authorities " + file.string() + " " + reason};
}

RTMPSocketFailure noContext() {
  return {RTMPSocketError::other, "TLS could not be set up"};
}

/// Nothing when the file cannot be read or is too large to be meant.
std::string contents(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string text(RTMPTransportSecurity::maximumAuthorities + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (text.size() > RTMPTransportSecurity::maximumAuthorities) text.clear();
  return text;
}

Result<void, RTMPSocketFailure> trustFile(X509_STORE* store, const std::filesystem::path& file) {
  const std::string text = contents(file);
  if (text.empty()) return failure(trustFailure(file, "cannot be read"));
  const MemoryBio bio(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())), BIO_free);
  if (!bio) return failure(noContext());
  ERR_clear_error();
  bool hasCertificate = false;
  while (const Certificate certificate{PEM_read_bio_X509_AUX(bio.get(), nullptr, nullptr, nullptr), X509_free}) {
    if (X509_STORE_add_cert(store, certificate.get()) != 1) return failure(noContext());
    hasCertificate = true;
  }
  const bool isAtEnd = ERR_GET_REASON(ERR_peek_last_error()) == PEM_R_NO_START_LINE;
  ERR_clear_error();
  if (!hasCertificate || !isAtEnd)
    return failure(trustFailure(file, hasCertificate ? "holds a broken certificate" : "holds no certificate"));
  return {};
}

/// Whether the system keeps its authorities one by one, under the hashes of their names (openssl-rehash).
bool hasHashedAuthorities() {
  std::error_code error;
  for (std::filesystem::directory_iterator it(X509_get_default_cert_dir(), error), end; !error && it != end;
       it.increment(error)) {
    if (it->path().extension() == ".0") return true;
  }
  return false;
}

/// The authorities of the system. Where it allows that, only those that are asked for are read, instead of all of them
/// for every connection. The variables of OpenSSL that name other places hold as ever.
bool trustSystem(SSL_CTX* context) {
  const bool isElsewhere =
      std::getenv(X509_get_default_cert_file_env()) || std::getenv(X509_get_default_cert_dir_env());
  if (!isElsewhere && hasHashedAuthorities()) return SSL_CTX_set_default_verify_dir(context) == 1;
  return SSL_CTX_set_default_verify_paths(context) == 1;
}

/// The address without its zone, or nothing for a name.
std::string addressText(const std::string& host) {
  asio::error_code error;
  asio::ip::address address = asio::ip::make_address(host, error);
  if (error) return {};
  if (address.is_v4()) return address.to_string();
  return asio::ip::address_v6(address.to_v6().to_bytes()).to_string();
}

/// Within the bound, and nothing but printable ASCII: names that come from outside must not steer a terminal.
std::string printable(std::string_view text) {
  std::string result;
  for (const char character : text) {
    if (result.size() == RTMPTransportSecurity::maximumText) return result + "...";
    result += character >= ' ' && character <= '~' ? character : '?';
  }
  return result;
}

std::string textOf(const X509_NAME* name) {
  const MemoryBio bio(BIO_new(BIO_s_mem()), BIO_free);
  if (!bio || X509_NAME_print_ex(bio.get(), name, 0, XN_FLAG_RFC2253 & ~static_cast<unsigned long>(XN_FLAG_DN_REV)) < 0)
    return {};
  char* data = nullptr;
  const long size = BIO_get_mem_data(bio.get(), &data);
  return size > 0 ? printable({data, static_cast<std::size_t>(size)}) : std::string();
}

std::string textOf(const GENERAL_NAME& name) {
  if (name.type == GEN_DNS) {
    const ASN1_IA5STRING* const text = name.d.dNSName;
    return {reinterpret_cast<const char*>(ASN1_STRING_get0_data(text)),
            static_cast<std::size_t>(ASN1_STRING_length(text))};
  }
  if (name.type != GEN_IPADD) return {};
  const unsigned char* const data = ASN1_STRING_get0_data(name.d.iPAddress);
  const int size = ASN1_STRING_length(name.d.iPAddress);
  if (size == 4) {
    asio::ip::address_v4::bytes_type bytes;
    std::copy_n(data, bytes.size(), bytes.begin());
    return asio::ip::address_v4(bytes).to_string();
  }
  if (size == 16) {
    asio::ip::address_v6::bytes_type bytes;
    std::copy_n(data, bytes.size(), bytes.begin());
    return asio::ip::address_v6(bytes).to_string();
  }
  return {};
}

/// Whom a certificate is for, "a.example, 10.0.0.1".
std::string namesIn(X509* certificate) {
  const std::unique_ptr<GENERAL_NAMES, decltype(&GENERAL_NAMES_free)> names(
      static_cast<GENERAL_NAMES*>(X509_get_ext_d2i(certificate, NID_subject_alt_name, nullptr, nullptr)),
      GENERAL_NAMES_free);
  std::string result;
  std::size_t count = 0;
  for (int i = 0; names && i < sk_GENERAL_NAME_num(names.get()); ++i) {
    const std::string text = textOf(*sk_GENERAL_NAME_value(names.get(), i));
    if (text.empty()) continue;
    if (++count > maximumNames) {
      result += " and others";
      break;
    }
    if (!result.empty()) result += ", ";
    result += text;
  }
  return printable(result);
}

}  // namespace

Result<RTMPTransportSecurity::Context, RTMPSocketFailure> RTMPTransportSecurity::makeContext(
    const std::filesystem::path& authorities) {
  Context context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
  if (!context) return failure(noContext());
  if (SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) != 1) return failure(noContext());
  if (!trustSystem(context.get())) return failure(noContext());
  SSL_CTX_set_verify(context.get(), SSL_VERIFY_PEER, nullptr);
  SSL_CTX_set_options(context.get(), SSL_OP_NO_RENEGOTIATION | SSL_OP_NO_COMPRESSION);
  SSL_CTX_set_mode(context.get(),
                   SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER | SSL_MODE_RELEASE_BUFFERS);
  SSL_CTX_set_session_cache_mode(context.get(), SSL_SESS_CACHE_OFF);
  if (!authorities.empty()) {
    X509_STORE* const store = SSL_CTX_get_cert_store(context.get());
    // A file may name the authority in the middle, or the server's own certificate, as what is trusted.
    X509_STORE_set_flags(store, X509_V_FLAG_PARTIAL_CHAIN);
    if (auto trusted = trustFile(store, authorities); !trusted) return failure(std::move(trusted.error()));
  }
  return context;
}

bool RTMPTransportSecurity::expectHost(SSL* ssl, const std::string& host) {
  X509_VERIFY_PARAM* const parameters = SSL_get0_param(ssl);
  const std::string address = addressText(host);
  if (!address.empty()) return X509_VERIFY_PARAM_set1_ip_asc(parameters, address.c_str()) == 1;

  std::string name = host;
  if (name.ends_with('.')) name.pop_back();
  // A name that starts with a dot would stand for every name below it.
  if (name.empty() || name.starts_with('.') || name.find('\0') != std::string::npos) return false;
  X509_VERIFY_PARAM_set_hostflags(parameters,
                                  X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS | X509_CHECK_FLAG_NEVER_CHECK_SUBJECT);
  return X509_VERIFY_PARAM_set1_host(parameters, name.data(), name.size()) == 1 &&
         SSL_set_tlsext_host_name(ssl, name.c_str()) == 1;
}

RTMPCertificateRefusal RTMPTransportSecurity::refusal(X509_STORE_CTX* store, const std::string& host) {
  RTMPCertificateRefusal result;
  result.host = host;
  const int error = X509_STORE_CTX_get_error(store);
  X509* certificate = X509_STORE_CTX_get_current_cert(store);
  if (!certificate) certificate = X509_STORE_CTX_get0_cert(store);
  if (certificate) result.issuer = textOf(X509_get_issuer_name(certificate));
  if (certificate && (error == X509_V_ERR_HOSTNAME_MISMATCH || error == X509_V_ERR_IP_ADDRESS_MISMATCH)) {
    const std::string names = namesIn(certificate);
    result.reason = names.empty() ? "it names no host" : "it is for " + names;
  } else {
    result.reason = X509_verify_cert_error_string(error);
  }
  return result;
}

}  // namespace vellora
