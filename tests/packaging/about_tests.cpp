// The box About names the release as the changelog does.
#include "shell/about_form.h"

#include <ctime>
#include <fstream>
#include <gtest/gtest.h>
#include <iomanip>
#include <iterator>
#include <regex>
#include <sstream>

TEST(About, TellsNumberAndMonthOfTheNewestRelease) {
    std::ifstream file(CHANGELOG);
    const std::string changelog{std::istreambuf_iterator<char>(file), {}};
    std::smatch head;
    ASSERT_TRUE(std::regex_search(changelog, head, std::regex("## ([0-9.]+) \\((.*)\\)")));
    std::tm date{};
    std::istringstream(head[2]) >> std::get_time(&date, "%Y-%m-%d");
    std::ostringstream month;
    month << std::put_time(&date, "%B %Y");

    DesignAboutForm();
    EXPECT_EQ(AboutForm.Label1.Caption, "Version " + head[1].str());
    const std::regex lines("\r\nQuillets, by [^\r\n]+\r\n[^ @\r\n]+@[^ @\r\n]+\r\n" + month.str());
    EXPECT_TRUE(std::regex_match(AboutForm.AboutText.Text, lines)) << AboutForm.AboutText.Text;
}
