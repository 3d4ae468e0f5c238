# Completion of vela for bash: what each command takes is asked of the program itself.
_vela()
{
    local mot=${COMP_WORDS[COMP_CWORD]} commande=() i
    for ((i = 1; i < COMP_CWORD; i++)); do
        [[ ${COMP_WORDS[i]} == [a-z]* && ${COMP_WORDS[i]} != *.* ]] && commande+=("${COMP_WORDS[i]}")
    done
    local aide
    aide=$(vela "${commande[@]:0:2}" --aide 2>/dev/null) || aide=$(vela "${commande[@]:0:1}" --aide 2>/dev/null)
    if [[ $mot == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(grep -oE '^ +-[-a-z,]+' <<<"$aide" | tr ',' ' ')" -- "$mot")
    else
        mapfile -t COMPREPLY < <(
            compgen -W "$(sed -n '/^Commandes/,$s/^  \([a-z]\+\) .*/\1/p' <<<"$aide")" -- "$mot"
            compgen -f -- "$mot")
    fi
}
complete -o filenames -F _vela vela
