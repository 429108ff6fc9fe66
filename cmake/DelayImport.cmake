# tessivo_delay_import(LIBRARY DLL FUNCTION…) makes LIBRARY_delayed, to link in place of a library of the
# system: the DLL is loaded when one of these functions is called first and not at the start of the program.
# A second start, which only hands a file over, never calls one (the common controls alone cost it 30 ms
# under Wine). In 32 bits, where names carry the size of the arguments, it is the library itself.
function(tessivo_delay_import library dll)
  add_library(${library}_delayed INTERFACE)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(definition ${CMAKE_BINARY_DIR}/delayed/${library}.def)
    set(archive ${CMAKE_BINARY_DIR}/delayed/lib${library}_delayed.a)
    list(JOIN ARGN "\n  " functions)
    set(text "LIBRARY ${dll}\nEXPORTS\n  ${functions}\n")
    if(EXISTS ${archive})
      file(READ ${definition} before)
    endif()
    if(NOT EXISTS ${archive} OR NOT before STREQUAL text)  # else everything would be linked again
      file(WRITE ${definition} ${text})
      execute_process(COMMAND ${CMAKE_DLLTOOL} --input-def ${definition} --output-delaylib ${archive}
        COMMAND_ERROR_IS_FATAL ANY)
    endif()
    target_link_libraries(${library}_delayed INTERFACE ${archive})
  endif()
  target_link_libraries(${library}_delayed INTERFACE ${library})  # what a test needs of it beyond that
endfunction()
