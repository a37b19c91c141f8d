# Completion of zr-platform for bash.
_zr_platform() {
    local lines kind endings file cur=${COMP_WORDS[COMP_CWORD]}
    mapfile -t lines < <(zr-platform --complete -- "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    [ ${#lines[@]} -eq 0 ] && return
    kind=${lines[-1]}
    unset 'lines[-1]'
    COMPREPLY=("${lines[@]}")
    [ "$cur" = = ] && cur=
    [ "$kind" = :value ] && kind=:files
    case $kind in
        :partial) compopt -o nospace 2>/dev/null ;;
        :dirs) mapfile -t -O ${#COMPREPLY[@]} COMPREPLY < <(compgen -d -- "$cur") ;;
        :files*)
            endings=" ${kind#:files} "
            while IFS= read -r file; do
                if [ "$kind" = :files ] || [ -d "$file" ] || [[ $endings == *" ${file##*.} "* ]]; then
                    COMPREPLY+=("$file")
                fi
            done < <(compgen -f -- "$cur") ;;
    esac
    [ "$kind" = :none ] || compopt -o filenames 2>/dev/null
}
complete -F _zr_platform zr-platform
