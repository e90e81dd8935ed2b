/* The octets of the viewer, whose file is AST_VIEWER. */
#ifdef __ELF__
    .section .rodata
#else
    .section .rdata,"dr"
#endif
    .globl ast_viewer_begin
    .globl ast_viewer_end
ast_viewer_begin:
    .incbin AST_VIEWER
ast_viewer_end:
    .byte 0
#ifdef __ELF__
    .section .note.GNU-stack,"",%progbits
#endif
