# Draws one icon for each size, as a picture whose channels say how much of which colour a pixel takes: red for the
# palette's text, blue for its accent, green for the drawing's own colour (see Icons.cpp).
#   cmake -DSVG=name.svg -DFOLDER=where -DSIZES=16,24 -DRSVG=rsvg-convert -P DrawIcon.cmake
file(READ ${SVG} drawing)
string(REPLACE "#333333" "#ff0000" drawing "${drawing}")
string(REPLACE "#2f6fde" "#0000ff" drawing "${drawing}")
foreach(own "#d13438" "#c98a00" "#f0b400")
  string(REPLACE ${own} "#00ff00" drawing "${drawing}")
endforeach()
get_filename_component(name ${SVG} NAME_WE)
set(coloured ${FOLDER}/${name}.svg)
file(WRITE ${coloured} "${drawing}")
string(REPLACE "," ";" sizes ${SIZES})
foreach(size ${sizes})
  file(MAKE_DIRECTORY ${FOLDER}/${size})
  execute_process(COMMAND ${RSVG} --width ${size} --height ${size} --keep-aspect-ratio
                          --output ${FOLDER}/${size}/${name}.png ${coloured} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
