# For sourcing: `as_root COMMAND...` runs a command as root, through sudo where the caller is somebody else.
as_root() {
    if [[ $(id -u) == 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}
