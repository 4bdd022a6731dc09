# Installs the built library into a private prefix, then configures, builds and runs a tiny
# host that finds it with find_package and links the one exported target.
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${WORK_DIR}/prefix
                RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "install failed")
endif()
file(GLOB library ${WORK_DIR}/prefix/lib*/*/libVarnel_Controles.so.*.*.* ${WORK_DIR}/prefix/lib*/libVarnel_Controles.so.*.*.*)
file(SIZE ${library} size)
message(STATUS "installed ${library}: ${size} bytes")
# The host is built as the library was (a sanitizer build's host carries the same runtime).
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/package/host -B ${WORK_DIR}/build
                -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_CXX_COMPILER=${HOST_CXX_COMPILER}
                "-DCMAKE_CXX_FLAGS=${HOST_CXX_FLAGS}" RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the host did not configure against the installed package")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}/build RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the host did not build against the installed package")
endif()
execute_process(COMMAND ${WORK_DIR}/build/package_host RESULT_VARIABLE rc OUTPUT_VARIABLE out)
message(STATUS "${out}")
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the host failed: ${rc}")
endif()
