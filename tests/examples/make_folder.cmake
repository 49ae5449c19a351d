# SPDX-License-Identifier: MIT
# An empty folder WORK with a file large enough to be written in several blocks.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK}/saved ${WORK}/cancelled)
string(REPEAT "0123456789abcde\n" 10000 content)
file(WRITE ${WORK}/large.bin "${content}")
