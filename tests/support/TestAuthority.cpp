#include "support/TestAuthority.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <stdlib.h>

#include <cstdio>
#include <stdexcept>

namespace vellora::test {
namespace {

void check(bool isFine, const char* what) {
  if (!isFine) throw std::runtime_error(std::string("the test's authority failed at ") + what);
}

void addExtension(X509* certificate, X509* issuer, int id, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
  X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, &context, id, value.c_str());
  check(extension && X509_add_ext(certificate, extension, -1) == 1, value.c_str());
  X509_EXTENSION_free(extension);
}

/// A certificate without extensions and signature.
X509* blank(const std::string& name, EVP_PKEY* key, int startsInDays, int endsInDays) {
  X509* const certificate = X509_new();
  X509_set_version(certificate, X509_VERSION_3);
  static long serial = 1;
  ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++serial);
  X509_time_adj_ex(X509_getm_notBefore(certificate), startsInDays, 0, nullptr);
  X509_time_adj_ex(X509_getm_notAfter(certificate), endsInDays, 0, nullptr);
  X509_set_pubkey(certificate, key);
  X509_NAME* const subject = X509_get_subject_name(certificate);
  const auto* const text = reinterpret_cast<const unsigned char*>(name.data());
  check(X509_NAME_add_entry_by_NID(subject, NID_commonName, MBSTRING_UTF8, text, static_cast<int>(name.size()), -1, 0),
        "a name");
  return certificate;
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

}  // namespace

TestAuthority::TestAuthority(const std::string& name)
    : key_(EVP_EC_gen("P-256"), EVP_PKEY_free), certificate_(blank(name, key_.get(), -60, 60), X509_free) {
  std::string folder = (std::filesystem::temp_directory_path() / "vellora-authority-XXXXXX").string();
  check(mkdtemp(folder.data()) != nullptr, "its folder");
  folder_ = folder;
  X509* const own = certificate_.get();
  X509_set_issuer_name(own, X509_get_subject_name(own));
  addExtension(own, own, NID_basic_constraints, "critical,CA:TRUE");
  addExtension(own, own, NID_key_usage, "critical,keyCertSign");
  addExtension(own, own, NID_subject_key_identifier, "hash");
  check(X509_sign(own, key_.get(), EVP_sha256()) > 0, "its signature");
  own_ = write("authority", certificate_, key_);
}

TestAuthority::~TestAuthority() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

TestAuthority::Identity TestAuthority::issue(const Request& request) {
  const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const Certificate certificate(blank(request.commonName, key.get(), request.startsInDays, request.daysFromNow),
                                X509_free);
  X509* const issuer = request.isSelfSigned ? certificate.get() : certificate_.get();
  X509_set_issuer_name(certificate.get(), X509_get_subject_name(issuer));
  addExtension(certificate.get(), issuer, NID_basic_constraints, "CA:FALSE");
  std::string names;
  for (const std::string& host : request.hosts) names += (names.empty() ? "DNS:" : ",DNS:") + host;
  for (const std::string& address : request.addresses) names += (names.empty() ? "IP:" : ",IP:") + address;
  if (!names.empty()) addExtension(certificate.get(), issuer, NID_subject_alt_name, names);
  EVP_PKEY* const signer = request.isSelfSigned ? key.get() : key_.get();
  check(X509_sign(certificate.get(), signer, EVP_sha256()) > 0, "a signature");
  return write("server" + std::to_string(++issued_), certificate, key);
}

TestAuthority::Identity TestAuthority::write(const std::string& name, const Certificate& certificate,
                                             const Key& key) const {
  Identity identity{folder_ / (name + ".pem"), folder_ / (name + ".key")};
  const File certificateFile(std::fopen(identity.certificate.c_str(), "w"), std::fclose);
  check(certificateFile && PEM_write_X509(certificateFile.get(), certificate.get()) == 1, "a file");
  const File keyFile(std::fopen(identity.key.c_str(), "w"), std::fclose);
  check(keyFile && PEM_write_PrivateKey(keyFile.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1,
        "a file of a key");
  return identity;
}

}  // namespace vellora::test
