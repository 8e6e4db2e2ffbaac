# What of the front end is made at build time: the code of the window designs, and the icons in the sizes of screens.

# Compiles designs into `target`: a class per design, and a function `function` that makes them known to the
# WindowLoader. A design is found under its file's name.
function(lumarin_window_designs target function)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/designs)
  set(includes "")
  set(entries "")
  foreach(design ${ARGN})
    get_filename_component(name ${design} NAME_WE)
    get_filename_component(design ${design} ABSOLUTE)
    set(header ${folder}/ui_${name}.h)
    add_custom_command(OUTPUT ${header} COMMAND Qt6::uic -o ${header} ${design} DEPENDS ${design} Qt6::uic
                       COMMENT "Generating the window ${name}" VERBATIM)
    target_sources(${target} PRIVATE ${header})
    string(APPEND includes "#include \"ui_${name}.h\"\n")
    string(APPEND entries "    AddDesign(\"${name}\", MakeWindow<Ui::${name}>);\n")
  endforeach()
  set(LUMARIN_DESIGN_INCLUDES "${includes}")
  set(LUMARIN_DESIGN_ENTRIES "${entries}")
  set(LUMARIN_DESIGN_FUNCTION ${function})
  configure_file(${CMAKE_SOURCE_DIR}/platform/qt/Designs.cpp.in ${folder}/${function}.cpp @ONLY)
  target_sources(${target} PRIVATE ${folder}/${function}.cpp)
  # The generated code belongs to uic; what it does is not warned about.
  set_source_files_properties(${folder}/${function}.cpp PROPERTIES COMPILE_OPTIONS "-w")
endfunction()

# Sizes in pixels: those that the windows use, once and twice, and the largest place holder.
set(LUMARIN_ICON_SIZES 16 18 20 24 28 32 36 40 48 64 96 192)

# Draws the icons as resources ":/icons/<size>/<name>.png"; `objects` receives the resources' targets.
function(lumarin_icons target objects)
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons)
  set(all "")
  string(REPLACE ";" "," sizes "${LUMARIN_ICON_SIZES}")
  set(script ${CMAKE_SOURCE_DIR}/scripts/cmake/DrawIcon.cmake)
  foreach(icon ${ARGN})
    get_filename_component(name ${icon} NAME_WE)
    set(pictures "")
    foreach(size ${LUMARIN_ICON_SIZES})
      list(APPEND pictures ${folder}/${size}/${name}.png)
    endforeach()
    add_custom_command(OUTPUT ${pictures}
                       COMMAND ${CMAKE_COMMAND} -DSVG=${icon} -DFOLDER=${folder} -DSIZES=${sizes}
                               -DRSVG=${RSVG_CONVERT} -P ${script}
                       DEPENDS ${icon} ${script} COMMENT "Drawing the icon ${name}" VERBATIM)
    list(APPEND all ${pictures})
  endforeach()
  qt_add_resources(${target} lumarin_icons PREFIX "/icons" BASE ${folder} FILES ${all} OUTPUT_TARGETS made)
  set(${objects} ${made} PARENT_SCOPE)
endfunction()
