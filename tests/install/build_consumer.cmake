# SPDX-License-Identifier: MIT
# Builds the consumer project against the installed tree, the way WAY says, and runs it.
include(${CMAKE_CURRENT_LIST_DIR}/Consumers.cmake)
file(REMOVE_RECURSE ${WORK})
consume(${SOURCE} ${WORK} ${PREFIX} ${WAY} ${PACKAGE})
