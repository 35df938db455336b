#include "cli/CommandLine.h"

#include <gtest/gtest.h>

#include "cli/CommandTable.h"
#include "cli/Completions.h"
#include "cli/ManualPage.h"

namespace vellora::cli {
namespace {

std::optional<Invocation> parsed(const std::vector<std::string>& arguments) {
  const auto result = parseCommandLine(arguments);
  if (const auto* invocation = std::get_if<Invocation>(&result)) return *invocation;
  return std::nullopt;
}

int exitCodeOf(const std::vector<std::string>& arguments) {
  const auto result = parseCommandLine(arguments);
  const auto* end = std::get_if<EndsHere>(&result);
  return end ? end->exitCode : -1;
}

TEST(CommandLine, ReadsVerbsOptionsAndArguments) {
  const auto area = parsed({"capture", "area", "--region", "-5,0,10,20", "--json", "--save"});
  ASSERT_TRUE(area);
  EXPECT_EQ(area->verb, "capture area");
  EXPECT_EQ(area->value("--region"), "-5,0,10,20");
  EXPECT_TRUE(area->json);
  EXPECT_TRUE(area->has("--save"));
  EXPECT_FALSE(area->has("--copy"));

  EXPECT_EQ(parsed({})->verb, "");
  EXPECT_EQ(parsed({"settings"})->verb, "settings");
  EXPECT_EQ(parsed({"settings", "set", "clipboardMode", "fileOnly"})->arguments,
            (std::vector<std::string>{"clipboardMode", "fileOnly"}));
  EXPECT_EQ(parsed({"compress", "a.png", "b.png", "--quality", "60", "c.png"})->arguments,
            (std::vector<std::string>{"a.png", "b.png", "c.png"}));
  EXPECT_EQ(parsed({"capture", "fullscreen", "--output=/tmp/x y.png"})->value("--output"), "/tmp/x y.png");
}

TEST(CommandLine, TellsWrongUsageFromHelp) {
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"capture"},
                                                {"fly"},
                                                {"capture", "area", "--bogus"},
                                                {"settings", "get"},
                                                {"completion", "tcsh"},
                                                {"capture", "fullscreen", "--output"},
                                                {"history"}}) {
    EXPECT_EQ(exitCodeOf(wrong), WrongUsage) << wrong[0];
  }
  EXPECT_EQ(exitCodeOf({"--help"}), Done);
  EXPECT_EQ(exitCodeOf({"capture", "area", "--help"}), Done);
  EXPECT_EQ(exitCodeOf({"--version"}), Done);
}

void expectMentioned(const std::string& text, const std::vector<VerbDescription>& verbs) {
  for (const VerbDescription& verb : verbs) {
    EXPECT_NE(text.find(verb.name), std::string::npos) << verb.name;
    for (const OptionDescription& option : verb.options) {
      EXPECT_NE(text.find(option.name.substr(2)), std::string::npos) << option.name;
    }
    expectMentioned(text, verb.verbs);
  }
}

TEST(CommandLine, ManualAndCompletionsKnowEveryVerbAndOption) {
  std::string manual = manualPage();
  std::erase(manual, '\\');  // dashes are escaped there
  expectMentioned(manual, commandTable());
  for (const char* shell : {"bash", "zsh", "fish"}) expectMentioned(*completionScript(shell), commandTable());
  EXPECT_FALSE(completionScript("csh"));
}

}  // namespace
}  // namespace vellora::cli
