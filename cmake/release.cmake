# The newest release is the first in the changelog, and its number and date are told there alone:
#   RELEASE_NUMBER   1.1
#   RELEASE_DATE     2026-11-23
#   RELEASE_MONTH    November 2026
#   RELEASE_DAY      Mon, 23 Nov 2026 00:00:00 +0000
#   RELEASE_TIME     the same in seconds since 1970
#   RELEASE_NEWS     what the release brings
set(changelog ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
file(READ ${changelog} text)
if(NOT text MATCHES "\n## ([0-9.]+) \\(([0-9]+-[0-9]+-[0-9]+)\\)\n\n([^#]*)")
  message(FATAL_ERROR "CHANGELOG.md has no head like \"## 1.1 (2026-11-23)\"")
endif()
set(RELEASE_NUMBER ${CMAKE_MATCH_1})
set(RELEASE_DATE ${CMAKE_MATCH_2})
string(STRIP "${CMAKE_MATCH_3}" RELEASE_NEWS)
execute_process(COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C
                        date --utc --date=${RELEASE_DATE} "+%B %Y;%a, %d %b %Y %T %z;%s"
                OUTPUT_VARIABLE dates OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
list(GET dates 0 RELEASE_MONTH)
list(GET dates 1 RELEASE_DAY)
list(GET dates 2 RELEASE_TIME)
