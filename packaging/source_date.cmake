# When the sources were last changed: HALVERN_SOURCE_DATE in seconds since 1970, HALVERN_SOURCE_DAY as 2026-11-22, both
# in universal time. A source archive has it in the file source-date, a clone in its last commit. What builds packages
# for others says it in SOURCE_DATE_EPOCH. With none of them it is the date of the changelog's file.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/source-date HALVERN_SOURCE_DATE LIMIT_COUNT 1)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(HALVERN_SOURCE_DATE $ENV{SOURCE_DATE_EPOCH})
elseif(NOT HALVERN_SOURCE_DATE MATCHES "^[0-9]+$" AND EXISTS ${CMAKE_SOURCE_DIR}/.git)
  execute_process(COMMAND git -C ${CMAKE_SOURCE_DIR} log -1 --format=%ct
    OUTPUT_VARIABLE HALVERN_SOURCE_DATE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(NOT HALVERN_SOURCE_DATE MATCHES "^[0-9]+$")
  file(TIMESTAMP ${CMAKE_SOURCE_DIR}/CHANGELOG.md HALVERN_SOURCE_DATE "%s" UTC)
endif()
execute_process(COMMAND date --utc --date=@${HALVERN_SOURCE_DATE} +%Y-%m-%d
  OUTPUT_VARIABLE HALVERN_SOURCE_DAY OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
