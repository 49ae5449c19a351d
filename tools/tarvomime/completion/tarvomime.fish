# SPDX-License-Identifier: MIT
# Completion of tarvomime's command line for fish: the tool itself knows what fits.
function __tarvomime_complete
    set -l token (commandline -ct)
    set -l words (commandline -opc)
    set -l reply ($words[1] __complete $words[2..-1] "$token" 2>/dev/null)
    switch "$reply[1]"
        case :files
            __fish_complete_path "$token"
        case :folders
            __fish_complete_directories "$token" ''
    end
    test (count $reply) -gt 1; and printf '%s\n' $reply[2..-1]
end
complete -c tarvomime -f -a '(__tarvomime_complete)'
