# Completion of zr-platform for fish.
function __zr_platform
    command -q zr-platform; or return
    set -l words (commandline -opc) (commandline -ct)
    set -l lines (zr-platform --complete -- $words[2..-1] 2>/dev/null)
    set -q lines[1]; or return
    set -l kind (string split ' ' -- $lines[-1])
    set -e lines[-1]
    string join -- \n $lines
    set -l token (commandline -ct)
    set -l before ''
    if test "$kind" = :value
        set before (string replace -r '[^=]*$' '' -- $token)
        set token (string replace -r '.*=' '' -- $token)
        set kind :files
    end
    switch $kind[1]
        case :dirs
            __fish_complete_directories (commandline -ct)
        case :files
            set -l endings $kind[2..-1]
            for file in (__fish_complete_path $token)
                set -l name (string split \t -- $file)[1]
                if not set -q endings[1]; or string match -q '*/' -- $name
                    echo $before$name
                else if contains -- (string replace -r '.*\.' '' -- $name) $endings
                    echo $before$name
                end
            end
    end
end
complete -c zr-platform -f -a '(__zr_platform)'
