/* Puts the files of this folder into the program; EmbeddedResources.h declares them. */

        .section .rodata
        .global g_TabulorixBlankScore
        .global g_TabulorixBlankScoreEnd
        .hidden g_TabulorixBlankScore
        .hidden g_TabulorixBlankScoreEnd
        .balign 16
g_TabulorixBlankScore:
        .incbin "BlankScore.treenode"
g_TabulorixBlankScoreEnd:
        .byte 0

/* Without this note the linker would have to assume that the program runs code on its stack. */
        .section .note.GNU-stack, "", %progbits
