"""Where Debian's Chromium puts everything on a page, in the form of page_boxes.cpp."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
# How the page's characters are counted, as the browser view counts them.
COUNTING = ROOT / 'platform/qt/html_view/engine/page_text.js'
STYLES = ['display', 'float', 'position']
OPTIONS = ['--headless=new', '--no-first-run', '--disable-gpu', '--disable-background-networking', '--disable-sync',
           '--disable-extensions', '--disable-component-update', '--host-resolver-rules=MAP * ~NOTFOUND',
           '--font-render-hinting=none', '--force-device-scale-factor=1', '--hide-scrollbars',
           '--remote-debugging-pipe']
OBJECTS = {'img': 'pictures', 'table': 'tables', 'hr': 'rules'}
WHITE_SPACE = ' \t\n\f\r'
PATIENCE = 120  # seconds


def is_installed():
    return shutil.which('chromium') is not None


class Chromium:
    """Speaks the debugging protocol over pipes: one message after the other, each ended by a zero byte."""

    def __init__(self, environment=None):
        self.home = tempfile.TemporaryDirectory(prefix='fidelity.', ignore_cleanup_errors=True)
        to_read, self.write_end = os.pipe()
        self.read_end, to_write = os.pipe()

        def use_pipes():  # the protocol's are 3 and 4, where other pipes may stand now
            os.dup2(to_read, 103)
            os.dup2(to_write, 104)
            os.dup2(103, 3)
            os.dup2(104, 4)

        options = OPTIONS + ['--user-data-dir=' + self.home.name] + (['--no-sandbox'] if os.geteuid() == 0 else [])
        self.process = subprocess.Popen(['chromium', *options, 'about:blank'], preexec_fn=use_pipes, close_fds=False,
                                        env={**os.environ, **(environment or {})}, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        os.close(to_read)
        os.close(to_write)
        self.buffer, self.number, self.session, self.events = b'', 0, None, []
        target = self.ask('Target.createTarget', url='about:blank')['targetId']
        self.session = self.ask('Target.attachToTarget', targetId=target, flatten=True)['sessionId']
        self.ask('Page.enable')
        self.ask('DOM.enable')
        self.ask('DOMSnapshot.enable')
        self.ask('Emulation.setScriptExecutionDisabled', value=True)

    def close(self):
        os.close(self.write_end)
        os.close(self.read_end)
        self.process.terminate()
        self.process.wait(PATIENCE)
        self.home.cleanup()

    def receive(self):
        while b'\0' not in self.buffer:
            piece = os.read(self.read_end, 1 << 20)
            if not piece:
                raise RuntimeError('Chromium has ended')
            self.buffer += piece
        message, self.buffer = self.buffer.split(b'\0', 1)
        return json.loads(message)

    def ask(self, method, **parameters):
        self.number += 1
        message = {'id': self.number, 'method': method, 'params': parameters}
        if self.session:
            message['sessionId'] = self.session
        data = memoryview(json.dumps(message).encode() + b'\0')
        while data:
            data = data[os.write(self.write_end, data):]
        while True:
            answer = self.receive()
            if answer.get('id') == self.number:
                if 'error' in answer:
                    raise RuntimeError(f'{method}: {answer["error"]}')
                return answer['result']
            self.events.append(answer.get('method'))

    def wait_for(self, event):
        while event not in self.events:
            self.events.append(self.receive().get('method'))

    def open(self, path, width, height=600):
        self.ask('Emulation.setDeviceMetricsOverride', width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.events.clear()
        self.ask('Page.navigate', url=pathlib.Path(path).resolve().as_uri())
        self.wait_for('Page.loadEventFired')

    def screenshot(self, path, width, height):
        import base64
        clip = {'x': 0, 'y': 0, 'width': width, 'height': height, 'scale': 1}
        data = self.ask('Page.captureScreenshot', clip=clip, captureBeyondViewport=True)['data']
        pathlib.Path(path).write_bytes(base64.b64decode(data))

    def text(self):
        frame = self.ask('Page.getFrameTree')['frameTree']['frame']['id']
        world = self.ask('Page.createIsolatedWorld', frameId=frame)['executionContextId']
        script = COUNTING.read_text() + '\npageText.whole();'
        answer = self.ask('Runtime.evaluate', expression=script, contextId=world, returnByValue=True)
        return answer['result']['value']

    def boxes(self):
        snapshot = self.ask('DOMSnapshot.captureSnapshot', computedStyles=STYLES)
        return Snapshot(snapshot).result()

    def page(self, path, width):
        self.open(path, width)
        return {'text': self.text(), **self.boxes()}


class Snapshot:
    def __init__(self, snapshot):
        self.strings = snapshot['strings']
        document = snapshot['documents'][0]
        self.nodes, self.layout, self.text_boxes = document['nodes'], document['layout'], document['textBoxes']
        self.number_nodes()

    def number_nodes(self):
        """Elements and texts in document order, without what the browser has added."""
        nodes = self.nodes
        hidden = set(nodes.get('shadowRootType', {}).get('index', []))
        hidden |= set(nodes.get('pseudoType', {}).get('index', []))
        self.numbers, elements, texts = {}, 0, 0
        for node, kind in enumerate(nodes['nodeType']):
            if nodes['parentIndex'][node] in hidden or node in hidden:
                hidden.add(node)
            elif kind == 1:
                self.numbers[node] = elements
                elements += 1
            elif kind == 3:
                self.numbers[node] = texts
                texts += 1
        self.layout_of = {}
        for index, node in enumerate(self.layout['nodeIndex']):
            self.layout_of.setdefault(node, index)

    def style(self, layout, name):
        values = self.layout['styles'][layout]
        return self.strings[values[STYLES.index(name)]] if values else ''

    def is_inline(self, layout):
        return (self.style(layout, 'display') in ('inline', 'contents', 'ruby') and self.style(layout, 'float') == 'none'
                and self.style(layout, 'position') not in ('absolute', 'fixed'))

    def container(self, node):
        while True:
            node = self.nodes['parentIndex'][node]
            layout = self.layout_of.get(node)
            if layout is not None and not self.is_inline(layout):
                return node

    def result(self):
        boxes, names, kinds = [], {}, {}
        for node, layout in self.layout_of.items():
            if self.nodes['nodeType'][node] != 1 or node not in self.numbers:
                continue
            name = self.strings[self.nodes['nodeName'][node]].lower()
            names[self.numbers[node]] = name
            kind = self.kind(name, layout)
            if kind:
                kinds[self.numbers[node]] = kind
            if name == 'img' or not self.is_inline(layout):
                boxes.append([self.numbers[node], *self.layout['bounds'][layout]])
        boxes.sort()
        return {'boxes': boxes, 'names': names, 'kinds': kinds, 'lines': self.lines(), 'height': boxes[0][4]}

    def kind(self, name, layout):
        if self.style(layout, 'float') != 'none':
            return 'floats'
        if self.style(layout, 'position') in ('absolute', 'fixed'):
            return 'positioned'
        return OBJECTS.get(name)

    def pieces(self):
        """(first letter, last letter, container, box) of every piece of a text that stands in one line."""
        all_boxes = self.text_boxes
        for i, layout in enumerate(all_boxes['layoutIndex']):
            node = self.layout['nodeIndex'][layout]
            if node not in self.numbers or self.nodes['nodeType'][node] != 3:
                continue
            text = self.strings[self.layout['text'][layout]]
            start, length = all_boxes['start'][i], all_boxes['length'][i]
            letters = [k for k in range(start, min(start + length, len(text))) if text[k] not in WHITE_SPACE]
            if not letters:
                continue
            before = sum(each not in WHITE_SPACE for each in text[:letters[0]])
            number = self.numbers[node]
            yield ((number, before), (number, before + len(letters) - 1), self.container(node), all_boxes['bounds'][i])

    def lines(self):
        lines, open_lines = [], {}
        for first, last, container, (left, top, width, height) in sorted(self.pieces(), key=lambda piece: piece[0]):
            line = open_lines.get(container)
            # Pieces of a line overlap by the most of their heights, or follow one another to the right.
            goes_on = line is not None and min(top + height, line['bottom']) - max(top, line['top']) > \
                0.3 * min(height, line['bottom'] - line['top']) and left >= line['right'] - 3
            if goes_on:
                line['right'] = max(line['right'], left + width)
                line['top'], line['bottom'] = min(line['top'], top), max(line['bottom'], top + height)
                line['last'] = last
            else:
                line = {'element': self.numbers[container], 'left': left, 'top': top, 'right': left + width,
                        'bottom': top + height, 'first': first, 'last': last}
                lines.append(line)
                open_lines[container] = line
        return [[line['element'], line['left'], line['top'], line['right'] - line['left'],
                 line['bottom'] - line['top'], *line['first'], *line['last']] for line in lines]
