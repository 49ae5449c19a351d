// SPDX-License-Identifier: MIT
// Nothing of its own: what all test programs precompile needs a source to be compiled with.
