"""Fontconfig's settings for a comparison: the same fonts, and letters as wide as they were drawn by their maker."""
import os


def settings(kind):
    """Of a font family that has faces with and without serifs, and of one width."""
    return {'serif': kind + ' Serif', 'Times New Roman': kind + ' Serif', 'sans-serif': kind + ' Sans',
            'Arial': kind + ' Sans', 'monospace': kind + (' Sans Mono' if kind == 'DejaVu' else ' Mono')}


def use(kind, folder):
    aliases = ''.join(f'<match target="pattern"><test name="family"><string>{name}</string></test><edit name="family" '
                      f'mode="assign" binding="strong"><string>{family}</string></edit></match>'
                      for name, family in settings(kind).items())
    path = os.path.join(folder, 'fonts.conf')
    with open(path, 'w') as file:
        file.write('<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig><dir>/usr/share/fonts</dir>'
                   f'<cachedir>{folder}/cache</cachedir>{aliases}<match target="font">'
                   '<edit name="hinting" mode="assign"><bool>false</bool></edit>'
                   '<edit name="autohint" mode="assign"><bool>false</bool></edit>'
                   '<edit name="hintstyle" mode="assign"><const>hintnone</const></edit>'
                   '<edit name="antialias" mode="assign"><bool>true</bool></edit></match></fontconfig>')
    os.environ['FONTCONFIG_FILE'] = path
