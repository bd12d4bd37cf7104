'use strict';

/*
 * Sounds: the robot plays a file by its address, and records what it hears.
 */
window.sample = window.sample || {};

(function (sample) {

  const CHIME = 'chime.wav';
  const TIME_LIMIT = 5000;   // milliseconds beyond the length of a recording

  const STATUS = new Map([
    ['PlayingState', ['busy', 'playPlaying']],
    ['StoppedState', ['note', 'playStopped']],
    ['EndOfMedia', ['good', 'playEnded']],
  ]);

  const element = (id) => document.getElementById(id);
  const { asText } = sample.values;
  const { chosen, told, createSlider } = sample.fields;
  const { show } = sample.language;

  // The page may be a file or on a server: the sound lies beside it in both cases.
  const chimeUrl = () => new URL(CHIME, window.location.href).href;

  // A file of the robot as an address; a name may hold any character.
  const fileUrl = (path) => 'file://' + path.split('/').map(encodeURIComponent).join('/');

  function createPlayer(app, recorder) {
    const news = sample.createNews(app, element('play-news'), 'playHint');
    const volume = createSlider('play-volume');

    function play(url) {
      news.tell('asking', 'playAsked');
      app.send('system.play.external', { url, volume: volume.value() });
    }

    function onStatus({ status, error, error_description: description }) {
      if (status === 'error') {
        news.tell('bad', 'playError', { code: asText(error), text: told(description) });
      } else {
        const [kind, key] = STATUS.get(status) || ['note', 'playOther'];
        news.tell(kind, key, told(status));
      }
    }

    function showRecording() {
      element('play-recording').disabled = recorder.file() === '';
    }

    recorder.onChange(showRecording);
    showRecording();

    return {
      reactions: [['system.play.status', onStatus]],
      buttons: {
        'play-chime': () => play(chimeUrl()),
        'play-recording': () => play(fileUrl(recorder.file())),
        'play-stop': () => app.send('system.play.external', { stop: true }),
      },
    };
  }

  function createRecorder(app) {
    const news = sample.createNews(app, element('record-news'), 'recordHint');
    const wait = sample.createWait(TIME_LIMIT, () => {
      setRecording(false);
      news.tell('bad', 'noReply');
    });
    const followers = [];
    let file = '';

    function setRecording(on) {
      element('record-stop').classList.toggle('is-needed', on);
    }

    function start() {
      const seconds = Number(chosen('record-length'));
      setRecording(true);
      news.tell('asking', 'recordStarted', seconds);
      wait.begin(seconds * 1000);
      app.send('record.audio.request', { start: true, timeout: seconds });
    }

    function stop() {
      wait.begin();
      app.send('record.audio.request', { stop: true });
    }

    // Comes at the end of a recording; also after a stop when there was none.
    function onRecorded({ file: path }) {
      wait.end();
      setRecording(false);
      file = asText(path);
      if (file === '') {
        news.tell('warning', 'recordNothing');
      } else {
        news.tell('good', 'recordDone');
      }
      showFile();
    }

    function showFile() {
      show('record-file', file === '' ? 'recordNoFile' : 'recordFile', file);
      followers.forEach((follow) => follow());
    }

    showFile();

    return {
      file: () => file,
      onChange: (follow) => followers.push(follow),
      reactions: [['record.audio.response', onRecorded]],
      buttons: { 'record-start': start, 'record-stop': stop },
    };
  }

  sample.createPlayer = createPlayer;
  sample.createRecorder = createRecorder;

})(window.sample);
