#pragma once

#include <openssl/types.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vellora::test {

/// A certificate authority of a test, and the certificates it issues to servers, as PEM files in a temporary folder
/// that goes with it.
class TestAuthority {
 public:
  struct Identity {
    std::filesystem::path certificate;
    std::filesystem::path key;
  };
  struct Request {
    std::vector<std::string> hosts{};
    std::vector<std::string> addresses{};
    std::string commonName = "Test Server";
    int daysFromNow = 2;  ///< when it ends; negative for one that has expired
    int startsInDays = -30;
    bool isSelfSigned = false;
  };

  explicit TestAuthority(const std::string& name = "Test Authority");
  ~TestAuthority();
  TestAuthority(const TestAuthority&) = delete;
  TestAuthority& operator=(const TestAuthority&) = delete;

  /// The authority's own certificate, to be trusted.
  const std::filesystem::path& certificate() const { return own_.certificate; }
  const std::filesystem::path& folder() const { return folder_; }
  Identity issue(const Request& request);

 private:
  using Key = std::unique_ptr<EVP_PKEY, void (*)(EVP_PKEY*)>;
  using Certificate = std::unique_ptr<X509, void (*)(X509*)>;
  Identity write(const std::string& name, const Certificate& certificate, const Key& key) const;

  std::filesystem::path folder_;
  Key key_;
  Certificate certificate_;
  Identity own_;
  int issued_ = 0;
};

}  // namespace vellora::test
