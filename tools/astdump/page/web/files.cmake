# The files of the page, in the order in which they are put together.
set(page_style ${CMAKE_CURRENT_LIST_DIR}/page.css)
set(page_boot ${CMAKE_CURRENT_LIST_DIR}/boot.js)
set(page_scripts
    format.js
    records.js
    stations.js
    plane.js
    layers.js
    points.js
    shapes.js
    view.js
    drawing.js
    plan.js
    clock.js
    search.js
    sections.js
    main.js)
list(TRANSFORM page_scripts PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
string(REPLACE ";" "," page_script_list "${page_scripts}")

add_custom_command(
  OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/page_files.cpp
  COMMAND ${CMAKE_COMMAND} -DOUTPUT=${CMAKE_CURRENT_BINARY_DIR}/page_files.cpp -DSTYLE=${page_style}
          -DBOOT=${page_boot} -DSCRIPTS=${page_script_list} -P ${CMAKE_CURRENT_LIST_DIR}/embed.cmake
  DEPENDS ${page_style} ${page_boot} ${page_scripts} ${CMAKE_CURRENT_LIST_DIR}/embed.cmake
  COMMENT "Embedding the style and the scripts of the page"
  VERBATIM)
