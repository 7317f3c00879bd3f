# The manual: pandoc makes a page of each chapter of docs/manual; formulas become MathML, and the pages need no network.
set(manual_from ${CMAKE_SOURCE_DIR}/docs/manual)
set(manual_to ${CMAKE_BINARY_DIR}/manual)
file(GLOB_RECURSE manual_files CONFIGURE_DEPENDS RELATIVE ${manual_from} ${manual_from}/*)

if(HALVERN_PANDOC)
  set(manual_style ${CMAKE_CURRENT_SOURCE_DIR}/manual)
  set(manual_made ${manual_to}/manual.css)
  add_custom_command(OUTPUT ${manual_to}/manual.css
    COMMAND ${CMAKE_COMMAND} -E copy ${manual_style}/manual.css ${manual_to}/manual.css
    DEPENDS ${manual_style}/manual.css VERBATIM)
  foreach(file ${manual_files})
    set(from ${manual_from}/${file})
    cmake_path(GET file PARENT_PATH folder)
    file(MAKE_DIRECTORY ${manual_to}/${folder})
    if(file MATCHES "^[^/]+\\.md$")
      cmake_path(GET file STEM chapter)
      set(to ${manual_to}/${chapter}.html)
      add_custom_command(OUTPUT ${to}
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 ${HALVERN_PANDOC}
          --from markdown --to html5 --standalone --mathml --no-highlight
          --template ${manual_style}/page.html --lua-filter ${manual_style}/page.lua --output ${to} ${from}
        DEPENDS ${from} ${manual_style}/page.html ${manual_style}/page.lua VERBATIM)
    else()
      set(to ${manual_to}/${file})
      add_custom_command(OUTPUT ${to} COMMAND ${CMAKE_COMMAND} -E copy ${from} ${to} DEPENDS ${from} VERBATIM)
    endif()
    list(APPEND manual_made ${to})
  endforeach()
  add_custom_target(manual ALL DEPENDS ${manual_made})
  set(manual_installed ${manual_to})
else()
  message(STATUS "pandoc was not found: the manual is installed as it was written, in Markdown")
  set(manual_installed ${manual_from})
endif()
# The scripts of the manual are run where they lie.
install(DIRECTORY ${manual_installed} DESTINATION ${doc}
  PATTERN "*.sh" PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
