# Completion of saldoro-archivio for bash.

_saldoro_archivio() {
    local word=$2 previous=$3 command=${COMP_WORDS[1]} options=
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W 'verifica imposta importa esporta --aiuto --versione' \
            -- "$word")
        return
    fi
    case $command in
    verifica) options='--codici' ;;
    importa) options='--nuovo --sostituisci --comunque' ;;
    esporta) options='--sovrascrivi' ;;
    esac
    if [ "$previous" = --sostituisci ]; then
        options='Funzioni SchedaProgetto UltimaPerVariante Anag Partecip Manda Fatture Spese'
    elif [ "$command $COMP_CWORD" = 'imposta 4' ]; then
        options='Del Importo ImportoIVA'
    elif [ "$previous" = --codici ]; then
        compopt -o default
        return
    elif [[ $word != -* ]]; then
        compopt -o nospace -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        return
    fi
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
}
complete -F _saldoro_archivio saldoro-archivio
