# Completion of vireo-cli in fish.

function __vireo_cli_option -a command
    complete -c vireo-cli -n "__fish_seen_subcommand_from $command" $argv[2..]
end

complete -c vireo-cli -n "__fish_use_subcommand" -f
complete -c vireo-cli -s h -l help -d "Print the help"
complete -c vireo-cli -n "__fish_use_subcommand" -l version -d "Print the version"
complete -c vireo-cli -n "__fish_use_subcommand" -a identify -d "What each file is and which viewer opens it"
complete -c vireo-cli -n "__fish_use_subcommand" -a header -d "The common keys of each header"
complete -c vireo-cli -n "__fish_use_subcommand" -a analyse -d "Every figure that the viewer of each file shows"
complete -c vireo-cli -n "__fish_use_subcommand" -a check -d "Whether the figures of each file are within limits"
complete -c vireo-cli -n "__fish_use_subcommand" -a render -d "The plot of the viewer as a picture or a page"
complete -c vireo-cli -n "__fish_use_subcommand" -a report -d "All files in one PDF"
complete -c vireo-cli -n "__fish_use_subcommand" -a export -d "The plotted series as a CSV table"
complete -c vireo-cli -n "__fish_use_subcommand" -a unpack -d "The members of a packed dump, as files"
complete -c vireo-cli -n "__fish_use_subcommand" -a pack -d "A packed dump that carries the files"
complete -c vireo-cli -n "__fish_use_subcommand" -a convert -d "A page of a TIFF written anew"
complete -c vireo-cli -n "__fish_use_subcommand" -a error -d "What an error code means"

for command in identify header analyse check report pack
    __vireo_cli_option $command -s r -l recursive -d "A folder stands for all files below it"
end
for command in identify header analyse check report
    __vireo_cli_option $command -l jobs -x -d "Files worked on at the same time"
end
for command in analyse check render report export
    __vireo_cli_option $command -l as -x -d "Take every file as this kind" \
        -a "oscilloscope mtf stitch noise light-profile kitbag adjust-center-ccd vertical-camera-verification startest tonal-resolution tiff"
    __vireo_cli_option $command -l line -x -d "The scan line, from 0"
end
for command in analyse check render report
    __vireo_cli_option $command -l unit -x -a "SU Inch CM" -d "The unit of positions"
end
for command in render export
    __vireo_cli_option $command -l sweep -x -d "The sweep of a star test, from 0"
end
for command in render report export pack convert
    __vireo_cli_option $command -s o -l output -r -d "The file to write"
end
__vireo_cli_option analyse -l arrays -d "Tell every value of a star test"
for command in check render report
    __vireo_cli_option $command -l limits -r -d "The limits of the figures"
end
__vireo_cli_option render -l camera -x -a "A B C D E F G H" -d "The camera shown"
__vireo_cli_option render -l color -x -a "red green blue gray all" -d "The plane shown"
__vireo_cli_option render -l zoom -x -d "So many times as large"
__vireo_cli_option render -l view -x -d "Which of its views, from 0"
__vireo_cli_option render -l fit -d "The whole picture"
__vireo_cli_option render -l size -x -a "1600x500 1600x1000 800x300" -d "Width and height in pixels"
__vireo_cli_option render -l scale -x -d "The scale of the screen that a PNG is for"
__vireo_cli_option render -l list -x -d "A page of the text about the file, from 1"
for command in render report
    __vireo_cli_option $command -l page -x -a "A4 A3 Letter" -d "The paper of a PDF"
end
__vireo_cli_option unpack -s d -l directory -x -a "(__fish_complete_directories)" -d "Where the members go"
__vireo_cli_option convert -l compression -x -a "none huffman g4 lzw packbits" -d "The new compression"
__vireo_cli_option convert -l predictor -x -a "1 2" -d "1 none, 2 horizontal differencing"
__vireo_cli_option convert -l page -x -d "The page, from 1"
__vireo_cli_option convert -l icc -r -d "The ICC profile to put in"
__vireo_cli_option error -f
__vireo_cli_option error -l plate -d "For scanners with a moving table"
functions --erase __vireo_cli_option
