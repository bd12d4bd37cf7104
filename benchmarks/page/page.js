// The page that all roads are measured with: "?road=channel", "socket", "socket-channel" or "script",
// with "&port=N" of a WebSocket. Its title tells when it is ready and, on a road without a way back,
// when it is done.

let send = () => { document.title = `done ${++send.count}`; };
send.count = 0;
let received = () => {};

function receive(message) { received(message); }

/** Tells when so many messages have come. */
function expect(count) {
  let left = count;
  received = () => {
    left -= 1;
    if (left === 0)
      send({type: 'bench.done'});
  };
}

/** Asks and waits for the answer, so many times, then tells that it is done. */
function roundTrips(count, bytes) {
  const text = 'x'.repeat(bytes);
  let left = count;
  received = () => {
    left -= 1;
    send(left > 0 ? {type: 'bench.echo', text} : {type: 'bench.done'});
  };
  send({type: 'bench.echo', text});
}

function joinChannel(transport) {
  new QWebChannel(transport, (channel) => {
    const bridge = channel.objects._karvel_internal;
    send = (message) => { bridge.sendMessage(message); };
    bridge.message.connect(receive);
    document.title = 'ready';
  });
}

function joinSocket(socket) {
  send = (message) => { socket.send(JSON.stringify(message)); };
  socket.onmessage = (event) => { receive(JSON.parse(event.data)); };
  document.title = 'ready';
}

window.addEventListener('load', () => {
  const query = new URLSearchParams(location.search);
  const road = query.get('road');
  if (road === 'channel') {
    joinChannel(qt.webChannelTransport);
  } else if (road === 'script') {
    document.title = 'ready';
  } else {
    const socket = new WebSocket(`ws://127.0.0.1:${query.get('port')}`);
    socket.onopen = () => { road === 'socket' ? joinSocket(socket) : joinChannel(socket); };
  }
});
