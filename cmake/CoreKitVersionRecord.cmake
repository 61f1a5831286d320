# corekit_version_record(TARGET FILE_VERSION a.b.c.d [PRODUCT_VERSION a.b.c.d] [LANGUAGE 0x0809] [CODE_PAGE 65001]
#                        [DESCRIPTION text] [COPYRIGHT text] [COMMENTS text] [SPECIAL_BUILD text])
# Puts a version record into a program or shared library, for CVersionData to read. The file version also becomes
# the text "FileVersion". Texts are bytes in the code page told; by default language 0x0409 and UTF-8.
function(corekit_version_record target)
  cmake_parse_arguments(PARSE_ARGV 1 arg ""
    "FILE_VERSION;PRODUCT_VERSION;LANGUAGE;CODE_PAGE;DESCRIPTION;COPYRIGHT;COMMENTS;SPECIAL_BUILD" "")
  if(NOT arg_FILE_VERSION OR arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "corekit_version_record(${target}): FILE_VERSION is needed, unknown: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  foreach(default "PRODUCT_VERSION;${arg_FILE_VERSION}" "LANGUAGE;0x0409" "CODE_PAGE;65001")
    list(POP_FRONT default name)
    if(NOT DEFINED arg_${name})
      set(arg_${name} ${default})
    endif()
  endforeach()

  set(numbers 1)
  foreach(version ${arg_FILE_VERSION} ${arg_PRODUCT_VERSION})
    string(REPLACE "." ";" parts ${version})
    list(APPEND parts 0 0 0)
    foreach(high 0 2)
      math(EXPR low "${high} + 1")
      list(GET parts ${high} a)
      list(GET parts ${low} b)
      math(EXPR word "(${a} << 16) | ${b}")
      list(APPEND numbers ${word})
    endforeach()
  endforeach()
  math(EXPR translation "${arg_LANGUAGE} | (${arg_CODE_PAGE} << 16)")
  list(APPEND numbers ${translation})
  list(JOIN numbers ", " numbers)

  set(bytes "")
  foreach(row "FileVersion;FILE_VERSION" "FileDescription;DESCRIPTION" "LegalCopyright;COPYRIGHT" "Comments;COMMENTS"
              "SpecialBuild;SPECIAL_BUILD")
    list(POP_FRONT row name)
    if(DEFINED arg_${row})
      string(HEX "${name}" hex_name)
      string(HEX "${arg_${row}}" hex_text)
      string(APPEND bytes "${hex_name}00${hex_text}00")
    endif()
  endforeach()
  string(REGEX REPLACE "(..)" "0x\\1, " bytes "${bytes}")
  string(REGEX REPLACE ", $" "" bytes "${bytes}")

  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}-version-record.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT [[
// Generated.
asm(R"(.pushsection .note.corekit.version, "a", @note
    .balign 4
    .long 8, 2f - 1f, 1
    .asciz "CoreKit"
1:  .long @numbers@
    .byte @bytes@
2:  .balign 4
    .popsection)");
]])
  target_sources(${target} PRIVATE ${source})
endfunction()
