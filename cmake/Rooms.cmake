# The rooms of the library as object libraries, in the order of rooms.txt.

# Sets ZR_ROOMS (names in order) and ZR_ROOM_DIR_<room>.
macro(zr_read_rooms file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} zr_lines REGEX "^[a-z]")
  set(ZR_ROOMS "")
  foreach(zr_line IN LISTS zr_lines)
    string(REGEX MATCH "^([a-z]+)[ ]+([a-z]+)" zr_match "${zr_line}")
    list(APPEND ZR_ROOMS ${CMAKE_MATCH_1})
    if(CMAKE_MATCH_2 STREQUAL "service")
      set(ZR_ROOM_DIR_${CMAKE_MATCH_1} ${PROJECT_SOURCE_DIR}/src/shared/${CMAKE_MATCH_1})
    else()
      set(ZR_ROOM_DIR_${CMAKE_MATCH_1} ${PROJECT_SOURCE_DIR}/src/shared/platform/src/${CMAKE_MATCH_1})
    endif()
  endforeach()
endmacro()

# One object library zr_room_<room> for each room that has sources.
function(zr_add_rooms)
  foreach(room IN LISTS ZR_ROOMS)
    file(GLOB sources CONFIGURE_DEPENDS ${ZR_ROOM_DIR_${room}}/*.cpp)
    if(sources)
      add_library(zr_room_${room} OBJECT ${sources})
      target_link_libraries(zr_room_${room} PRIVATE zr_options)
      target_compile_definitions(zr_room_${room} PRIVATE ZR_VERSION="${PROJECT_VERSION}"
          ZR_VERSION_MAJOR=${PROJECT_VERSION_MAJOR} ZR_VERSION_MINOR=${PROJECT_VERSION_MINOR})
    endif()
  endforeach()
endfunction()

# The objects of the rooms up to and including `last`, as generator expressions in `out`.
function(zr_objects_up_to last out)
  set(objects "")
  foreach(room IN LISTS ZR_ROOMS)
    if(TARGET zr_room_${room})
      list(APPEND objects $<TARGET_OBJECTS:zr_room_${room}>)
    endif()
    if(room STREQUAL last)
      break()
    endif()
  endforeach()
  set(${out} ${objects} PARENT_SCOPE)
endfunction()
