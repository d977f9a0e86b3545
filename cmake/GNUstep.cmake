# OBJC_COMPILER, objc_flags and objc_libraries: what Objective-C for GNUstep is built with.
find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)
find_program(OBJC_COMPILER gcc REQUIRED)
execute_process(COMMAND ${GNUSTEP_CONFIG} --objc-flags OUTPUT_VARIABLE objc_flags
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${GNUSTEP_CONFIG} --base-libs OUTPUT_VARIABLE objc_libraries
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(objc_flags UNIX_COMMAND "${objc_flags}")
separate_arguments(objc_libraries UNIX_COMMAND "${objc_libraries}")
list(REMOVE_ITEM objc_flags -MMD -MP -g)
